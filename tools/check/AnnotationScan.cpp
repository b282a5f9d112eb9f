// Looks at the annotations of declarations. Entry point: scanAnnotations(); all else is local.

#include "check/AnnotationScan.h"

#include "loading/SchemaDocument.h"
#include "text/Similarity.h"
#include "text/Unicode.h"

#include <XMLUtils/TextConversion.h>

#include <algorithm>
#include <map>

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

/// The sources of what is said about a reference in the type of a group.
constexpr std::u16string_view Annotations::*membersOfReferences[] = {
    &Annotations::requiredStatus, &Annotations::distinguishedValue, &Annotations::localTag};

/// What the annotations of all declarations are compared with.
struct Context {
  const DOMElement& schema;
  const Annotations& annotations;
  std::vector<std::u16string_view> known;
  std::map<std::u16string_view, std::string> meant;  ///< By sources of no family: the one that was probably meant.
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

/// The source that a given one of another beginning may be mistyped for, in whatever part of it.
std::string similarSource(std::u16string_view source, Context& context) {
  const auto [entry, isNew] = context.meant.try_emplace(source);
  if (!isNew) return entry->second;
  const std::u32string text(source.begin(), source.end());
  for (const std::u16string_view known : context.known) {
    if (isSimilar(text, std::u32string(known.begin(), known.end()))) entry->second = narrowSource(known);
  }
  return entry->second;
}

std::string lastPart(std::u16string_view source) {
  return narrowSource(source.substr(source.find_last_of(u"/:") + 1));
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

/// @return the sources that were probably meant.
std::vector<std::string> noteUnknown(const AnnotationsOfOne& all, Context& context) {
  std::vector<std::string> meant;
  const auto note = [&](const Annotation& unknown, const std::string& nearest) {
    const std::string text = encode(printable(XMLUtils::toWstring(unknown.appinfo->getAttribute(u"source"))));
    context.scan.unknownAnnotations.push_back({declarationPositionOf(*unknown.appinfo), text, nearest});
    meant.push_back(nearest);
  };
  for (const Annotation& one : all) {
    if (std::find(context.known.begin(), context.known.end(), one.source) != context.known.end()) continue;
    const Annotations& annotations = context.annotations;
    if (beginsWith(one.source, annotations.ofElements)) {
      note(one, nearestSource(one.source, annotations.ofElements, context));
    } else if (beginsWith(one.source, annotations.ofGroups)) {
      note(one, nearestSource(one.source, annotations.ofGroups, context));
    } else if (const std::string similar = similarSource(one.source, context); !similar.empty()) {
      note(one, similar);
    }
  }
  return meant;
}

bool hasSource(const AnnotationsOfOne& all, std::u16string_view source) {
  return std::any_of(all.begin(), all.end(), [&](const Annotation& one) { return one.source == source; });
}

void noteOtherFlavour(const DOMElement& declaration, const AnnotationsOfOne& all, const Context& context) {
  const Annotations& other = otherAnnotations(context.annotations);
  std::string sources;
  for (const auto member : membersRead) {
    if (!hasSource(all, other.*member) || hasSource(all, context.annotations.*member)) continue;
    sources += (sources.empty() ? "" : ", ") + lastPart(other.*member);
  }
  if (sources.empty()) return;
  const char16_t* naming = declaration.hasAttribute(u"name") ? u"name" : u"ref";
  context.scan.otherFlavour.push_back(
      {declarationPositionOf(declaration), XMLUtils::toWstring(declaration.getAttribute(naming)), sources});
}

/// Notes a declaration that has some of the annotations, but not the one that marks it as an element or a group.
/// @param meant  what annotations of it were probably meant to be, which is told already.
void noteUnmarked(const DOMElement& declaration, const AnnotationsOfOne& all, const std::vector<std::string>& meant,
                  std::u16string_view Annotations::*mark,
                  std::initializer_list<std::u16string_view Annotations::*> others, const Context& context) {
  const std::u16string_view missing = context.annotations.*mark;
  if (std::find(meant.begin(), meant.end(), narrowSource(missing)) != meant.end()) return;
  for (const auto other : others) {
    if (!hasSource(all, context.annotations.*other)) continue;
    context.scan.unmarkedDeclarations.push_back({declarationPositionOf(declaration),
                                                 XMLUtils::toWstring(declaration.getAttribute(u"name")),
                                                 lastPart(context.annotations.*other), lastPart(missing)});
    return;
  }
}

void noteUnmarked(const DOMElement& declaration, const AnnotationsOfOne& all, const std::vector<std::string>& meant,
                  const Context& context) {
  if (declaration.getParentNode() != &context.schema || !isNamed(declaration, u"element")) return;
  for (const Annotations* flavour : {&urnAnnotations, &registryAnnotations}) {
    if (hasSource(all, flavour->elementLabel) || hasSource(all, flavour->groupKey)) return;
  }
  noteUnmarked(declaration, all, meant, &Annotations::elementLabel,
               {&Annotations::elementName, &Annotations::elementLength, &Annotations::elementDefinition}, context);
  // Abstract groups need a key only to become sets, too.
  if (isDeclaredAbstract(declaration)) return;
  noteUnmarked(declaration, all, meant, &Annotations::groupKey, {&Annotations::groupName, &Annotations::groupComments},
               context);
}

/// Notes annotations of top-level declarations that stand elsewhere, and the other way round.
void noteMisplaced(const DOMElement& declaration, const AnnotationsOfOne& all, const Context& context) {
  const bool isTopLevel = declaration.getParentNode() == &context.schema;
  for (const Annotation& one : all) {
    const DeclarationPosition position = declarationPositionOf(*one.appinfo);
    const bool isMark = one.source == context.annotations.elementLabel || one.source == context.annotations.groupKey;
    if (isMark && !isTopLevel) {
      context.scan.unread.push_back({position,
                                     lastPart(one.source) + " is read at declarations of the top level only.",
                                     "Declare the element below xs:schema, and refer to it with ref.",
                                     {}});
    }
    for (const auto member : membersOfReferences) {
      if (one.source != context.annotations.*member || !isTopLevel) continue;
      context.scan.unread.push_back({position,
                                     lastPart(one.source) + " is read at references in types of groups only.",
                                     "Annotate the xs:element with ref in the type of each group that has it.",
                                     {}});
    }
  }
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

void noteEmptyTag(const AnnotationsOfOne& all, const Context& context) {
  const DOMElement* empty = nullptr;
  for (const auto& [source, appinfo] : all) {
    if (source != context.annotations.localTag) continue;
    if (!firstText(*appinfo).empty()) return;  // which is read then
    empty = appinfo;
  }
  if (empty == nullptr) return;
  context.scan.unread.push_back({declarationPositionOf(*empty),
                                 "The local tag has no text, and is as none.",
                                 "Write the tag, or take the annotation out.",
                                 {}});
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
  Context context = {schema, annotations, annotations.sources(), {}, scan};
  forEachWithin(schema, [&](const DOMElement& declaration) {
    const AnnotationsOfOne all = annotationsOfDeclaration(declaration);
    if (all.empty()) return;
    for (const Annotation& one : all) ++scan.sources[narrowSource(one.source)];
    noteUnmarked(declaration, all, noteUnknown(all, context), context);
    noteMisplaced(declaration, all, context);
    noteOtherFlavour(declaration, all, context);
    noteRepeated(all, context);
    noteEmptyTag(all, context);
    noteValue(declaration, all, context);
  });
}

}  // namespace MXF::Tessel::Tool
