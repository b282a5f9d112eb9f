// What should be in the dictionary and is not, and what is and need not.

#include "analysis/PendingReferences.h"
#include "check/RuleFamilies.h"
#include "text/Similarity.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

/// References that names are suggested for: each is compared with all names of a namespace.
constexpr std::size_t mostSuggestions = 100;

/// Sets by the namespaces and names that references have. Of sets of one name the first stands for all.
using SetsByXmlName = std::map<std::pair<Templates::WideString, Templates::WideString>, const DictionaryIndex::Set*>;

SetsByXmlName setsByXmlName(const DictionaryIndex::Sets& sets) {
  SetsByXmlName named;
  for (const DictionaryIndex::Set* set : sets) {
    const Templates::WideString* uri = findProperty(*set, PropertyKeys::xmlNamespaceURI);
    const Templates::WideString* name = findProperty(*set, PropertyKeys::xmlTagName);
    if (uri != nullptr && name != nullptr) named.emplace(std::make_pair(*uri, *name), set);
  }
  return named;
}

/// A reference to a set that was loaded all the same: references are resolved while a scheme is loaded.
Finding lateReference(const DictionaryIndex::Element& element, const DictionaryIndex::Set& set) {
  Finding finding(placeAt(element.origin()),
                  "Element " + quotedName(element) + " refers to set " + quotedName(set) +
                      ", which was loaded before it, and stays unresolved.",
                  {{placeAt(set.origin()), quotedName(set) + " is declared here"}});
  finding.remedy = "Give the schema of the element before the scheme of the set.";
  return finding;
}

/// The sets of an element that no scheme declares, by their namespaces.
using UndeclaredSets = std::map<Templates::WideString, std::vector<std::string>>;

/// The names of the sets, by their namespaces.
using NamesByNamespace = std::map<Templates::WideString, std::vector<std::string>>;

NamesByNamespace namesByNamespace(const SetsByXmlName& sets) {
  NamesByNamespace names;
  for (const auto& [name, set] : sets) names[name.first].push_back(encode(printable(name.second)));
  return names;
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

Finding undeclaredReferences(const DictionaryIndex::Element& element, const UndeclaredSets& sets) {
  std::string text;
  std::string names;
  std::vector<std::string> namespaces;
  for (const auto& [uri, namesOfUri] : sets) {
    const bool isBound = !uri.empty();
    if (isBound) namespaces.push_back(encode(printable(uri)));
    const std::string unbound = joined(namesOfUri) + " of no namespace, as the root binds no such prefix";
    text +=
        (text.empty() ? "" : "; ") + (isBound ? joined(namesOfUri) + " of namespace " + namespaces.back() : unbound);
    names += (names.empty() ? "" : isBound ? ", " : "; ") + (isBound ? joined(namesOfUri) : unbound);
  }
  const std::string start = "Element " + quotedName(element) + " refers to what no scheme declares: ";
  Finding finding(placeAt(element.origin()), start + text + ".");
  finding.shortMessage = start + names + ".";
  finding.namespaces = std::move(namespaces);
  return finding;
}

/// What was probably meant, as a sentence; empty when nothing comes near.
std::string suggestion(const UndeclaredSets& undeclared, const NamesByNamespace& declared) {
  std::vector<std::string> near;
  for (const auto& [uri, names] : undeclared) {
    const auto known = declared.find(uri);
    if (known == declared.end()) continue;
    for (const std::string& name : names) {
      const std::vector<std::string> nearOne = nearest(name, known->second);
      if (!nearOne.empty()) near.push_back('"' + nearOne.front() + '"');
    }
  }
  return near.empty() ? "" : "Did you mean " + joined(near) + "?";
}

/// A group that is declared in a schema that was read, and where.
struct DeclaredGroup {
  const DeclarationScan::Declaration* declaration;
  Place place;
  bool isInGivenSchema;
};
/// By their keys, with small letters.
using DeclaredGroups = std::map<std::u32string, DeclaredGroup>;

DeclaredGroups declaredGroups(const Subject& subject) {
  DeclaredGroups groups;
  for (const auto& [path, isGiven] : subject.schemasWithImports()) {
    for (const auto& [position, declaration] : subject.scanOf(path).declarations) {
      if (declaration.key.empty()) continue;
      groups.emplace(lowerCase(printable(declaration.key)),
                     DeclaredGroup{&declaration, {path, position.first, position.second}, isGiven});
    }
  }
  return groups;
}

Finding missingBase(const DictionaryIndex::Set& set, const std::u32string& key, const DeclaredGroups& groups) {
  const std::string start = "Set " + quotedName(set) + " is derived from ";
  const auto group = groups.find(lowerCase(key));
  if (group == groups.end())
    return {placeAt(set.origin()), start + "the set with key " + encode(key) + ", which is not loaded."};
  const std::string name = '"' + encode(printable(group->second.declaration->name)) + '"';
  const std::string file = encode(printable(group->second.place.path));
  Finding finding(placeAt(set.origin()),
                  start + name + " of " + file + ", which is not loaded (key " + encode(key) + ").",
                  {{group->second.place, name + " is declared here"}});
  finding.remedy = group->second.isInGivenSchema ? "Correct what keeps " + file + " from being loaded."
                                                 : "Load " + file + " with --scheme, too.";
  return finding;
}

/// Whether sets may be missing for no other reason than that the flavour is not known.
bool hasPassedOver(const Subject& subject) {
  const auto& loads = subject.outcome().loads;
  return std::any_of(loads.begin(), loads.end(), [](const LoadRecord& load) { return load.isPassedOver; });
}

/// Bases that are declared, but not found by the name that a type gives them.
Findings misspelledBases(const Subject& subject) {
  Findings findings;
  std::map<std::string, std::size_t> known;  // many schemes may have their bases from one
  for (const LoadRecord& load : subject.outcome().loads) {
    if (!load.leftOut || load.leftOut->isAbstract) continue;
    const LeftOutGroups& leftOut = *load.leftOut;
    const auto [number, isNew] =
        known.emplace(shownPlace(leftOut.failure.place, load.file.path) + leftOut.why, findings.size());
    if (isNew) {
      findings.push_back(
          {placeAt(leftOut.failure.place), encode(printable("A base is left out, since " + leftOut.why + "."))});
      findings.back().remedy = encode(printable(leftOut.remedy));
    }
    Finding& finding = findings[number->second];
    const Place file{shownPath(Utils::stringToWstring(load.file.path.c_str()))};
    if (file.path != finding.place.path) finding.related.push_back({file, "met while loading this file"});
  }
  return findings;
}

}  // namespace

Findings findUnresolvedReferences(const Subject& subject) {
  Findings findings;
  if (subject.sets().empty() || hasPassedOver(subject)) return findings;
  const SetsByXmlName sets = setsByXmlName(subject.sets());
  const NamesByNamespace declared = namesByNamespace(sets);
  std::size_t suggestions = 0;
  for (const DictionaryIndex::Element* element : subject.elements()) {
    UndeclaredSets undeclared;
    for (const PendingReference& reference : pendingReferences(*element)) {
      const auto set = sets.find({reference.namespaceUri, reference.setName});
      if (set != sets.end()) {
        findings.push_back(lateReference(*element, *set->second));
      } else {
        undeclared[reference.namespaceUri].push_back(encode(printable(reference.setName)));
      }
    }
    if (undeclared.empty()) continue;
    findings.push_back(undeclaredReferences(*element, undeclared));
    if (++suggestions <= mostSuggestions) findings.back().remedy = suggestion(undeclared, declared);
  }
  return findings;
}

Findings findMissingBases(const Subject& subject) {
  Findings findings = misspelledBases(subject);
  std::optional<DeclaredGroups> groups;
  for (const DictionaryIndex::Set* set : subject.sets()) {
    const auto base = subject.index().missingBaseOf(*set);
    if (!base || hasPassedOver(subject)) continue;
    if (!groups) groups = declaredGroups(subject);
    findings.push_back(missingBase(*set, printable(*base), *groups));
  }
  return findings;
}

Findings findUnusedElements(const Subject& subject) {
  Findings findings;
  if (subject.sets().empty() || subject.isIncomplete()) return findings;
  for (const DictionaryIndex::Element* element : subject.elements()) {
    if (!subject.index().usesOf(*element).empty()) continue;
    findings.push_back({placeAt(element->origin()), "No set uses element " + quotedName(*element) + "."});
    findings.back().name = quotedName(*element);
  }
  return findings;
}

}  // namespace MXF::Tessel::Tool
