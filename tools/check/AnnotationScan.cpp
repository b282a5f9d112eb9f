// Looks at the annotations of declarations. Entry point: scanAnnotations(); all else is local.

#include "check/AnnotationScan.h"

#include "loading/SchemaDocument.h"
#include "text/Similarity.h"

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

/// The sources of what the loader makes dictionaries of, each by its member. Others are for readers of the schema.
constexpr std::u16string_view Annotations::*membersRead[] = {
    &Annotations::elementLabel,   &Annotations::elementName,        &Annotations::groupKey, &Annotations::groupName,
    &Annotations::requiredStatus, &Annotations::distinguishedValue, &Annotations::localTag};

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

void noteUnknown(const AnnotationsOfOne& all, const Context& context) {
  for (const auto& [source, appinfo] : all) {
    if (std::find(context.known.begin(), context.known.end(), source) != context.known.end()) continue;
    for (const std::u16string_view base : {context.annotations.ofElements, context.annotations.ofGroups}) {
      if (!beginsWith(source, base)) continue;
      context.scan.unknownAnnotations.push_back(
          {declarationPositionOf(*appinfo), narrowSource(source), nearestSource(source, base, context)});
    }
  }
}

bool hasSource(const AnnotationsOfOne& all, std::u16string_view source) {
  return std::any_of(all.begin(), all.end(), [&](const Annotation& one) { return one.source == source; });
}

void noteOtherFlavour(const DOMElement& declaration, const AnnotationsOfOne& all, const Context& context) {
  const Annotations& other = otherAnnotations(context.annotations);
  std::string sources;
  for (const auto member : membersRead) {
    if (!hasSource(all, other.*member) || hasSource(all, context.annotations.*member)) continue;
    const std::string source = narrowSource(other.*member);
    sources += (sources.empty() ? "" : ", ") + source.substr(source.find_last_of("/:") + 1);
  }
  if (sources.empty()) return;
  const char16_t* naming = declaration.hasAttribute(u"name") ? u"name" : u"ref";
  context.scan.otherFlavour.push_back(
      {declarationPositionOf(declaration), XMLUtils::toWstring(declaration.getAttribute(naming)), sources});
}

void noteRepeated(const AnnotationsOfOne& all, const Context& context) {
  for (const auto member : membersRead) {
    const std::u16string_view source = context.annotations.*member;
    const auto isOfSource = [&](const Annotation& one) { return one.source == source; };
    const auto first = std::find_if(all.begin(), all.end(), isOfSource);
    if (first == all.end()) continue;
    const auto second = std::find_if(first + 1, all.end(), isOfSource);
    if (second == all.end()) continue;
    context.scan.repeatedAnnotations.push_back(
        {declarationPositionOf(*second->appinfo), declarationPositionOf(*first->appinfo), narrowSource(source)});
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
void noteValue(const DOMElement& declaration, const AnnotationsOfOne& all, const Context& context) {
  for (const auto& [source, appinfo] : all) {
    if (source != context.annotations.distinguishedValue) continue;
    DeclarationScan::WrittenValue& value = context.scan.values[declarationPositionOf(declaration)];
    if (value.read.empty()) value = {firstText(*appinfo), XMLUtils::toWstring(appinfo->getTextContent())};
  }
}

}  // namespace

void scanAnnotations(const DOMElement& schema, const Annotations& annotations, DeclarationScan& scan) {
  const Context context = {annotations, annotations.sources(), scan};
  forEachWithin(schema, [&](const DOMElement& declaration) {
    const AnnotationsOfOne all = annotationsOfDeclaration(declaration);
    if (all.empty()) return;
    for (const Annotation& one : all) ++scan.sources[narrowSource(one.source)];
    noteUnknown(all, context);
    noteOtherFlavour(declaration, all, context);
    noteRepeated(all, context);
    noteValue(declaration, all, context);
  });
}

}  // namespace MXF::Tessel::Tool
