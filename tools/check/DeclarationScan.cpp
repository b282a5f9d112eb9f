// Looks at declarations as the loader's queries do, for what these do not select. Entry point: scanDeclarations(); all
// else is local. Each document is walked a fixed number of times, however many declarations it has.

#include "check/DeclarationScan.h"

#include "check/AnnotationScan.h"
#include "loading/SchemaDocument.h"
#include "text/Unicode.h"

#include <XMLUtils/TextConversion.h>

namespace MXF::Tessel::Tool {

using xercesc::DOMElement;

namespace {

bool isReference(const DOMElement& element) {
  return element.hasAttribute(u"ref") && (isNamed(element, u"element") || isNamed(element, u"attribute"));
}

DeclarationScan::PlainReference plainReference(const DOMElement& reference, const DOMElement& type) {
  const auto [namespaceUri, name] = nameIn(reference, u"ref");
  return {declarationPositionOf(reference), XMLUtils::toWstring(type.getAttribute(u"name")), namespaceUri, name};
}

/// Adds the references without a status, and what is no reference but would be one to other readers. Types that are no
/// group's and have no status at all are not for the loader.
void scanType(const DOMElement& type, bool isOfGroup, const Annotations& annotations, DeclarationScan& scan) {
  const Annotations& other = otherAnnotations(annotations);
  std::vector<DeclarationScan::PlainReference> found;
  std::vector<DeclarationPosition> modelGroups;
  forEachWithin(type, [&](const DOMElement& inner) {
    if (isNamed(inner, u"group") && inner.hasAttribute(u"ref")) modelGroups.push_back(declarationPositionOf(inner));
    if (!isReference(inner)) return;
    if (annotationOf(inner, annotations.requiredStatus)) {
      isOfGroup = true;
    } else if (!annotationOf(inner, other.requiredStatus)) {
      found.push_back(plainReference(inner, type));
    }
  });
  if (!isOfGroup) return;
  for (const DeclarationScan::PlainReference& reference : found) scan.plainReferences.push_back(reference);
  for (const DeclarationPosition& position : modelGroups) {
    scan.unread.push_back({position,
                           "The elements of an xs:group are no attributes of the set.",
                           "Refer to each element in the type of the group itself.",
                           {}});
  }
}

void scanImport(const DOMElement& import, DeclarationScan& scan) {
  if (!import.hasAttribute(u"schemaLocation")) return;
  scan.imports.push_back({declarationPositionOf(import), XMLUtils::toWstring(import.getAttribute(u"namespace")),
                          XMLUtils::toWstring(import.getAttribute(u"schemaLocation"))});
}

/// Adds the top-level declarations.
/// @return the names of the types that groups have.
std::set<std::u16string> scanTopLevel(const DOMElement& schema, const Annotations& annotations, DeclarationScan& scan) {
  std::set<std::u16string> typesOfGroups;
  scan.targetNamespace = XMLUtils::toWstring(schema.getAttribute(u"targetNamespace"));
  forEachChild(schema, [&](const DOMElement& declaration) {
    if (isNamed(declaration, u"import")) return scanImport(declaration, scan);
    const auto key = annotationOf(declaration, annotations.groupKey);
    scan.declarations[declarationPositionOf(declaration)] = {XMLUtils::toWstring(declaration.getAttribute(u"name")),
                                                             key.value_or(Templates::WideString()),
                                                             isDeclaredAbstract(declaration)};
    if (!key) return;
    const std::u16string type = declaration.getAttribute(u"type");
    typesOfGroups.insert(type.substr(type.find(u':') + 1));  // all of it when there is no colon
  });
  return typesOfGroups;
}

/// The loader takes the first one of a name.
void scanRepeatedTypes(const DOMElement& schema, DeclarationScan& scan) {
  std::map<std::u16string, DeclarationPosition> firsts;
  forEachChild(schema, [&](const DOMElement& declaration) {
    if (!isNamed(declaration, u"complexType") || !declaration.hasAttribute(u"name")) return;
    const std::u16string name = declaration.getAttribute(u"name");
    const auto [first, isNew] = firsts.emplace(name, declarationPositionOf(declaration));
    if (isNew) return;
    scan.unread.push_back({declarationPositionOf(declaration),
                           "Type \"" + encode(printable(XMLUtils::toWstring(name.c_str()))) + "\" is declared twice.",
                           "Keep one of the two; only the first one is read.", first->second});
  });
}

void scanInclusions(const DOMElement& schema, DeclarationScan& scan) {
  forEachChild(schema, [&](const DOMElement& declaration) {
    for (const char16_t* name : {u"include", u"redefine", u"override"}) {
      if (!isNamed(declaration, name)) continue;
      scan.inclusions.push_back({declarationPositionOf(declaration), XMLUtils::toWstring(name),
                                 XMLUtils::toWstring(declaration.getAttribute(u"schemaLocation"))});
    }
  });
}

bool namesSets(const DOMElement& choice) {
  bool names = false;
  forEachChild(choice, [&](const DOMElement& child) {
    names = names || (isNamed(child, u"element") && child.hasAttribute(u"ref"));
  });
  return names;
}

void scanElement(const DOMElement& declaration, DeclarationScan& scan) {
  forEachWithin(declaration, [&](const DOMElement& inner) {
    if (isNamed(inner, u"choice") && namesSets(inner)) scan.withChoices.insert(declarationPositionOf(declaration));
  });
}

/// The loader knows declarations by the prefix xs, whatever that stands for.
void scanRoot(const DOMElement& root, DeclarationScan& scan) {
  const XMLCh* uri = root.getNamespaceURI();
  const std::u16string_view given = uri == nullptr ? u"" : uri;
  const XMLCh* ofPrefix = root.lookupNamespaceURI(u"xs");
  if (ofPrefix != nullptr && ofPrefix != std::u16string_view(schemaNamespace))
    scan.wrongPrefix = XMLUtils::toWstring(ofPrefix);
  if (isNamed(root, u"schema") && given == schemaNamespace) return;
  scan.wrongRoot = {declarationPositionOf(root), XMLUtils::toWstring(given.data()),
                    XMLUtils::toWstring(root.getLocalName())};
}

void scanPrefixes(const DOMElement& element, DeclarationScan& scan) {
  for (const char16_t* attribute : {u"type", u"ref", u"base"}) {
    if (!element.hasAttribute(attribute)) continue;
    const std::u16string name = element.getAttribute(attribute);
    const std::size_t colon = name.find(u':');
    if (colon == std::u16string::npos || element.lookupNamespaceURI(name.substr(0, colon).c_str()) != nullptr) continue;
    const std::string text = encode(printable(XMLUtils::toWstring(name.c_str())));
    scan.unboundPrefixes.push_back({declarationPositionOf(element), text.substr(0, text.find(':')), text});
  }
}

void scanSchema(const DOMElement& schema, const Annotations& annotations, DeclarationScan& scan) {
  scanRoot(schema, scan);
  scanAnnotations(schema, annotations, scan);
  forEachWithin(schema, [&](const DOMElement& element) { scanPrefixes(element, scan); });
  scanInclusions(schema, scan);
  scanRepeatedTypes(schema, scan);
  const std::set<std::u16string> ofGroups = scanTopLevel(schema, annotations, scan);
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
    scan.isRead = true;
    scanSchema(*document.getDocumentElement(), annotations, scan);
  });
  return scan;
}

}  // namespace MXF::Tessel::Tool
