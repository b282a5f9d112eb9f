// What should be in the dictionary and is not, and what is and need not.

#include "analysis/PendingReferences.h"
#include "check/RuleFamilies.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>

#include <algorithm>
#include <map>
#include <utility>

namespace MXF::Tessel::Tool {

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

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
using UndeclaredSets = std::map<Templates::WideString, std::string>;

Finding undeclaredReferences(const DictionaryIndex::Element& element, const UndeclaredSets& sets) {
  std::string text;
  std::string names;
  std::vector<std::string> namespaces;
  for (const auto& [uri, namesOfUri] : sets) {
    namespaces.push_back(encode(printable(uri)));
    text += (text.empty() ? "" : "; ") + namesOfUri + " of namespace " + namespaces.back();
    names += (names.empty() ? "" : ", ") + namesOfUri;
  }
  const std::string start = "Element " + quotedName(element) + " refers to what no scheme declares: ";
  Finding finding(placeAt(element.origin()), start + text + ".");
  finding.shortMessage = start + names + ".";
  finding.namespaces = std::move(namespaces);
  return finding;
}

}  // namespace

Findings findUnresolvedReferences(const Subject& subject) {
  Findings findings;
  if (subject.sets().empty()) return findings;
  const SetsByXmlName sets = setsByXmlName(subject.sets());
  for (const DictionaryIndex::Element* element : subject.elements()) {
    UndeclaredSets undeclared;
    for (const PendingReference& reference : pendingReferences(*element)) {
      const auto set = sets.find({reference.namespaceUri, reference.setName});
      if (set != sets.end()) {
        findings.push_back(lateReference(*element, *set->second));
        continue;
      }
      std::string& names = undeclared[reference.namespaceUri];
      names += (names.empty() ? "" : ", ") + encode(printable(reference.setName));
    }
    if (!undeclared.empty()) findings.push_back(undeclaredReferences(*element, undeclared));
  }
  return findings;
}

Findings findMissingBases(const Subject& subject) {
  Findings findings;
  for (const DictionaryIndex::Set* set : subject.sets()) {
    const auto base = subject.index().missingBaseOf(*set);
    if (!base) continue;
    findings.push_back({placeAt(set->origin()), "Set " + quotedName(*set) + " is derived from the set with key " +
                                                    encode(printable(*base)) + ", which is not loaded."});
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
