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

bool holdsText(const MetaMetadata::PropertyMap& map, const wchar_t* key, const Templates::WideString& text) {
  const Templates::WideString* property = findProperty(map, key);
  return property != nullptr && *property == text;
}

/// The set that a pending reference names, or null.
const DictionaryIndex::Set* setOf(const PendingReference& reference, const Subject& subject) {
  const auto& sets = subject.sets();
  const auto found = std::find_if(sets.begin(), sets.end(), [&](const DictionaryIndex::Set* set) {
    return holdsText(*set, PropertyKeys::xmlTagName, reference.setName) &&
           holdsText(*set, PropertyKeys::xmlNamespaceURI, reference.namespaceUri);
  });
  return found == sets.end() ? nullptr : *found;
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
  for (const DictionaryIndex::Element* element : subject.elements()) {
    UndeclaredSets undeclared;
    for (const PendingReference& reference : pendingReferences(*element)) {
      if (const DictionaryIndex::Set* set = setOf(reference, subject)) {
        findings.push_back(lateReference(*element, *set));
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
