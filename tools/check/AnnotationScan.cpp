// Looks at the annotations of declarations. Entry point: scanAnnotations(); all else is local.

#include "check/AnnotationScan.h"

#include "loading/SchemaDocument.h"
#include "text/Similarity.h"

#include <XMLUtils/SourcePosition.h>
#include <XMLUtils/TextConversion.h>

#include <algorithm>

namespace MXF::Tessel::Tool {

using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

struct Annotation {
  std::u16string_view source;
  const DOMElement* appinfo;
};
using AnnotationsOfOne = std::vector<Annotation>;

/// What the annotations of all declarations are compared with.
struct Context {
  const Annotations& annotations;
  std::vector<std::u16string_view> known;
  DeclarationScan& scan;
};

bool beginsWith(std::u16string_view text, std::u16string_view start) {
  return text.substr(0, start.size()) == start;
}

/// The source that differs from the given one least in what follows the base of the family, else one of the other
/// family that ends in the same word.
std::string nearestSource(std::u16string_view source, std::u16string_view base, const Context& context) {
  const std::string given = narrowSource(source.substr(base.size()));
  std::vector<std::string> names;
  for (const std::u16string_view known : context.known) {
    if (beginsWith(known, base)) names.push_back(narrowSource(known.substr(base.size())));
    if (!beginsWith(known, base) && narrowSource(known).size() > given.size() && !given.empty() &&
        narrowSource(known).substr(narrowSource(known).size() - given.size()) == given) {
      return narrowSource(known);
    }
  }
  const std::vector<std::string> near = nearest(given, names);
  return near.empty() || given.empty() ? "" : narrowSource(base) + near.front();
}

AnnotationsOfOne annotationsOfDeclaration(const DOMElement& declaration) {
  AnnotationsOfOne all;
  forEachChild(declaration, [&](const DOMElement& annotation) {
    if (!isNamed(annotation, u"annotation")) return;
    forEachChild(annotation, [&](const DOMElement& appinfo) {
      if (isNamed(appinfo, u"appinfo")) all.push_back({appinfo.getAttribute(u"source"), &appinfo});
    });
  });
  return all;
}

void findUnknown(const AnnotationsOfOne& all, const Context& context) {
  for (const auto& [source, appinfo] : all) {
    if (std::find(context.known.begin(), context.known.end(), source) != context.known.end()) continue;
    for (const std::u16string_view base : {context.annotations.ofElements, context.annotations.ofGroups}) {
      if (!beginsWith(source, base)) continue;
      context.scan.unknownAnnotations.push_back(
          {declarationPositionOf(*appinfo), narrowSource(source), nearestSource(source, base, context)});
    }
  }
}

/// The first text within, which is all that the loader reads.
Templates::WideString firstText(const DOMElement& appinfo) {
  for (const DOMNode* child = appinfo.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
    const auto type = child->getNodeType();
    if (type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE)
      return XMLUtils::toWstring(child->getNodeValue());
  }
  return {};
}

/// An annotation without text is as none to the loader, so that one with text after it is read.
void findValue(const DOMElement& declaration, const AnnotationsOfOne& all, const Context& context) {
  for (const auto& [source, appinfo] : all) {
    if (source != context.annotations.distinguishedValue) continue;
    DeclarationScan::WrittenValue& value = context.scan.values[declarationPositionOf(declaration)];
    if (value.read.empty()) value = {firstText(*appinfo), XMLUtils::toWstring(appinfo->getTextContent())};
  }
}

}  // namespace

DeclarationPosition declarationPositionOf(const DOMElement& element) {
  const XMLUtils::SourcePosition position = XMLUtils::positionOf(element);
  return {position.line, position.column};
}

void scanAnnotations(const DOMElement& schema, const Annotations& annotations, DeclarationScan& scan) {
  const Context context = {annotations, annotations.sources(), scan};
  forEachWithin(schema, [&](const DOMElement& declaration) {
    const AnnotationsOfOne all = annotationsOfDeclaration(declaration);
    findUnknown(all, context);
    findValue(declaration, all, context);
  });
}

}  // namespace MXF::Tessel::Tool
