// Looks at declarations as the loader's queries do, for what these do not select. Entry point: scanDeclarations().

#include "check/DeclarationScan.h"

#include "loading/SchemaDocument.h"
#include "text/Similarity.h"

#include <XMLUtils/SourcePosition.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMNodeList.hpp>

#include <algorithm>

namespace MXF::Tessel::Tool {

using xercesc::DOMElement;

namespace {

constexpr const char16_t* schemaNamespace = u"http://www.w3.org/2001/XMLSchema";

DeclarationPosition positionOf(const DOMElement& element) {
  const XMLUtils::SourcePosition position = XMLUtils::positionOf(element);
  return {position.line, position.column};
}

template <class Action>
void forEachWithin(const xercesc::DOMNodeList& list, const Action& action) {
  for (XMLSize_t i = 0; i < list.getLength(); ++i) action(static_cast<const DOMElement&>(*list.item(i)));
}

bool beginsWith(std::u16string_view text, std::u16string_view start) {
  return text.substr(0, start.size()) == start;
}

/// The source that differs from the given one least in what follows the base of the family, else one of the other
/// family that ends in the same word.
std::string nearestSource(std::u16string_view source, std::u16string_view base, const Annotations& annotations) {
  const std::string given = narrowSource(source.substr(base.size()));
  std::vector<std::string> names;
  for (const std::u16string_view known : annotations.sources()) {
    if (beginsWith(known, base)) names.push_back(narrowSource(known.substr(base.size())));
    if (!beginsWith(known, base) && narrowSource(known).size() > given.size() && !given.empty() &&
        narrowSource(known).substr(narrowSource(known).size() - given.size()) == given) {
      return narrowSource(known);
    }
  }
  const std::vector<std::string> near = nearest(given, names);
  return near.empty() || given.empty() ? "" : narrowSource(base) + near.front();
}

void scanAnnotation(const DOMElement& appinfo, const Annotations& annotations, DeclarationScan& scan) {
  const std::u16string_view source = appinfo.getAttribute(u"source");
  const std::vector<std::u16string_view> known = annotations.sources();
  if (std::find(known.begin(), known.end(), source) != known.end()) return;
  for (const std::u16string_view base : {annotations.ofElements, annotations.ofGroups}) {
    if (!beginsWith(source, base)) continue;
    scan.unknownAnnotations.push_back(
        {positionOf(appinfo), narrowSource(source), nearestSource(source, base, annotations)});
  }
}

bool isReference(const DOMElement& element) {
  return element.hasAttribute(u"ref") && (isNamed(element, u"element") || isNamed(element, u"attribute"));
}

DeclarationScan::PlainReference plainReference(const DOMElement& reference, const DOMElement& type) {
  const std::u16string name = reference.getAttribute(u"ref");
  const std::size_t colon = name.find(u':');
  const bool hasPrefix = colon != std::u16string::npos;
  const XMLCh* uri = reference.lookupNamespaceURI(hasPrefix ? name.substr(0, colon).c_str() : nullptr);
  return {positionOf(reference), XMLUtils::toWstring(type.getAttribute(u"name")),
          uri == nullptr ? Templates::WideString() : XMLUtils::toWstring(uri),
          XMLUtils::toWstring(name.substr(hasPrefix ? colon + 1 : 0).c_str())};
}

/// Adds the references without a status. Types that are no group's and have none at all are not for the loader.
void scanType(const DOMElement& type, bool isOfGroup, const Annotations& annotations, DeclarationScan& scan) {
  std::vector<DeclarationScan::PlainReference> found;
  forEachWithin(*type.getElementsByTagNameNS(schemaNamespace, u"*"), [&](const DOMElement& inner) {
    if (!isReference(inner)) return;
    if (annotationOf(inner, annotations.requiredStatus)) {
      isOfGroup = true;
    } else {
      found.push_back(plainReference(inner, type));
    }
  });
  if (!isOfGroup) return;
  for (const DeclarationScan::PlainReference& reference : found) scan.plainReferences.push_back(reference);
}

/// The names of the types that the groups of a document have.
std::set<std::u16string> groupTypes(const DOMElement& schema, const Annotations& annotations) {
  std::set<std::u16string> names;
  forEachChild(schema, [&](const DOMElement& declaration) {
    if (!annotationOf(declaration, annotations.groupKey)) return;
    const std::u16string type = declaration.getAttribute(u"type");
    names.insert(type.substr(type.find(u':') + 1));  // all of it when there is no colon
  });
  return names;
}

bool namesSets(const DOMElement& choice) {
  bool names = false;
  forEachChild(choice, [&](const DOMElement& child) {
    names = names || (isNamed(child, u"element") && child.hasAttribute(u"ref"));
  });
  return names;
}

void scanElement(const DOMElement& declaration, DeclarationScan& scan) {
  forEachWithin(*declaration.getElementsByTagNameNS(schemaNamespace, u"choice"), [&](const DOMElement& choice) {
    if (namesSets(choice)) scan.withChoices.insert(positionOf(declaration));
  });
}

void scanSchema(const DOMElement& schema, const Annotations& annotations, DeclarationScan& scan) {
  forEachWithin(*schema.getElementsByTagNameNS(schemaNamespace, u"appinfo"),
                [&](const DOMElement& appinfo) { scanAnnotation(appinfo, annotations, scan); });
  const std::set<std::u16string> ofGroups = groupTypes(schema, annotations);
  forEachChild(schema, [&](const DOMElement& declaration) {
    if (isNamed(declaration, u"element")) return scanElement(declaration, scan);
    if (!isNamed(declaration, u"complexType")) return;
    scanType(declaration, ofGroups.count(declaration.getAttribute(u"name")) > 0, annotations, scan);
  });
}

}  // namespace

DeclarationScan scanDeclarations(const Templates::WideString& path, const Annotations& annotations) {
  DeclarationScan scan;
  lookInto(path, [&](const xercesc::DOMDocument& document) {
    scanSchema(*document.getDocumentElement(), annotations, scan);
  });
  return scan;
}

}  // namespace MXF::Tessel::Tool
