// What is written in schemas and does not get into the dictionary, without an error.

#include "analysis/PendingReferences.h"
#include "check/RuleFamilies.h"
#include "loading/ImportedSchemas.h"
#include "text/ElementText.h"
#include "text/Unicode.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <utility>

namespace MXF::Tessel::Tool {

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

Place placeIn(const Templates::WideString& path, const DeclarationPosition& position) {
  return {path, position.first, position.second};
}

/// Whether it was told of the file as a whole that it is of the other flavour.
bool isGivenWrongly(const Templates::WideString& path, const Subject& subject) {
  const auto& loads = subject.outcome().loads;
  return std::any_of(loads.begin(), loads.end(), [&](const LoadRecord& load) {
    return load.failure && load.failure->className == wrongFileClass &&
           shownPath(Utils::stringToWstring(load.file.path.c_str())) == path;
  });
}

std::string describedNamespace(const Templates::WideString& uri) {
  return uri.empty() ? "no namespace" : "namespace " + encode(printable(uri));
}

/// Schemas that are included, but neither followed nor given.
void addInclusions(const Subject& subject, const Templates::WideString& path, Findings& findings) {
  const auto& given = subject.schemas();
  for (const DeclarationScan::Inclusion& inclusion : subject.scanOf(path).inclusions) {
    const bool isAbsolute = inclusion.location.compare(0, 1, L"/") == 0;  // an import of it would not be
    const Templates::WideString included = isAbsolute ? inclusion.location : importedPath(path, inclusion.location);
    const auto isIt = [&](const Templates::WideString& schema) { return isSameFile(schema, included); };
    if (std::any_of(given.begin(), given.end(), isIt)) continue;
    const std::string of = inclusion.location.empty() ? "" : " of " + encode(printable(included));
    findings.push_back(
        {placeIn(path, inclusion.position), "The xs:" + encode(printable(inclusion.name)) + of + " is not followed."});
    findings.back().remedy =
        "Give that file, too, with --dictionary or --scheme; types that others extend have to be imported.";
  }
}

template <class Holder>
bool isWithoutSets(const DictionaryIndex::Element& element) {
  MetaMetadata::Visitors::GetMetaElementVisitor<Holder> holder;
  element.accept(holder);
  return holder.get() != nullptr && holder.get()->allowedMetadataSets().empty();
}

}  // namespace

Findings findUntargetedReferences(const Subject& subject) {
  Findings findings;
  for (const DictionaryIndex::Element* element : subject.elements()) {
    const bool isWithout = isWithoutSets<MetaMetadata::MetaReferenceElement>(*element) ||
                           isWithoutSets<MetaMetadata::MetaReferenceCollection>(*element);
    if (!isWithout || !pendingReferences(*element).empty()) continue;
    // A choice may name sets by their identifiers only, which is no fault.
    const Place place = placeAt(element->origin());
    if (subject.scanOf(place.path).withChoices.count({place.line, place.column}) > 0) continue;
    findings.push_back({place, "Element " + quotedName(*element) + " is a reference and names no set in a choice."});
  }
  return findings;
}

Findings findUnknownAnnotations(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    for (const DeclarationScan::UnknownAnnotation& unknown : subject.scanOf(path).unknownAnnotations) {
      findings.push_back(
          {placeIn(path, unknown.position), "The annotation \"" + unknown.source + "\" is none that is read."});
      if (!unknown.nearest.empty()) findings.back().remedy = "Did you mean \"" + unknown.nearest + "\"?";
    }
  }
  return findings;
}

Findings findOtherFlavour(const Subject& subject) {
  const Annotations& other = otherAnnotations(annotationsOf(subject.outcome().targetNamespace));
  Findings findings;
  if (!isFlavourKnown(subject.outcome())) return findings;
  for (const Templates::WideString& path : subject.schemas()) {
    if (isGivenWrongly(path, subject)) continue;
    for (const DeclarationScan::OtherFlavour& declaration : subject.scanOf(path).otherFlavour) {
      const std::string name = '"' + encode(printable(declaration.name)) + '"';
      findings.push_back(
          {placeIn(path, declaration.position), name + " has annotations of the " + other.flavour +
                                                    " flavour only, which are not read: " + declaration.sources + "."});
      findings.back().name = name;
    }
  }
  return findings;
}

Findings findRepeatedAnnotations(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    for (const DeclarationScan::RepeatedAnnotation& repeated : subject.scanOf(path).repeatedAnnotations) {
      findings.push_back({placeIn(path, repeated.position),
                          "The annotation \"" + repeated.source + "\" stands twice; only the first one is read.",
                          {{placeIn(path, repeated.first), "this one is read"}}});
    }
  }
  return findings;
}

Findings findUnmarkedDeclarations(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    for (const DeclarationScan::UnmarkedDeclaration& unmarked : subject.scanOf(path).unmarkedDeclarations) {
      const std::string name = '"' + encode(printable(unmarked.name)) + '"';
      findings.push_back({placeIn(path, unmarked.position), name + " has the annotation " + unmarked.present +
                                                                ", but no " + unmarked.missing + ", and is not read."});
      findings.back().remedy = "Annotate it with " + unmarked.missing + ", too.";
    }
  }
  return findings;
}

Findings findUnread(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    for (const DeclarationScan::Unread& unread : subject.scanOf(path).unread) {
      findings.push_back({placeIn(path, unread.position), unread.message});
      if (unread.first) findings.back().related.push_back({placeIn(path, *unread.first), "this one is read"});
      findings.back().remedy = unread.remedy;
    }
    addInclusions(subject, path, findings);
  }
  return findings;
}

Findings findUnboundPrefixes(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    for (const DeclarationScan::UnboundPrefix& unbound : subject.scanOf(path).unboundPrefixes) {
      findings.push_back({placeIn(path, unbound.position),
                          "The prefix \"" + unbound.prefix + "\" of " + unbound.name + " stands for no namespace."});
    }
  }
  return findings;
}

Findings findWrongImports(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    for (const DeclarationScan::Import& import : subject.scanOf(path).imports) {
      const Templates::WideString imported = importedPath(path, import.location);
      const DeclarationScan& scan = subject.scanOf(imported);
      if (!scan.isRead || scan.targetNamespace == import.namespaceUri) continue;
      findings.push_back({placeIn(path, import.position), encode(printable(imported)) + " is imported for " +
                                                              describedNamespace(import.namespaceUri) + ", but is of " +
                                                              describedNamespace(scan.targetNamespace) + "."});
    }
  }
  return findings;
}

Findings findReferencesWithoutStatus(const Subject& subject) {
  std::map<std::pair<std::u32string, std::u32string>, const DictionaryIndex::Element*> elements;
  for (const DictionaryIndex::Element* element : subject.elements()) {
    elements.emplace(std::make_pair(propertyText(*element, PropertyKeys::xmlNamespaceURI),
                                    propertyText(*element, PropertyKeys::xmlTagName)),
                     element);
  }
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    for (const DeclarationScan::PlainReference& reference : subject.scanOf(path).plainReferences) {
      const auto element = elements.find({printable(reference.namespaceUri), printable(reference.elementName)});
      if (element == elements.end()) continue;
      findings.push_back({placeIn(path, reference.position),
                          "Element " + quotedName(*element->second) + " has no required status in type \"" +
                              encode(printable(reference.typeName)) + "\", and is left out of its sets."});
    }
  }
  return findings;
}

}  // namespace MXF::Tessel::Tool
