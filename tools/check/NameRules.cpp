// Names that stand for two things: XML names, by which schemas refer to elements and sets, and registry names.

#include "check/RuleFamilies.h"
#include "text/ElementText.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

/// Namespace and tag.
std::pair<std::u32string, std::u32string> xmlNameOf(const MetaMetadata::PropertyMap& map) {
  return {propertyText(map, PropertyKeys::xmlNamespaceURI), propertyText(map, PropertyKeys::xmlTagName)};
}

template <class Things>
void addSharedXmlNames(const Things& things, const std::string& noun, Findings& findings) {
  Things named;
  std::copy_if(things.begin(), things.end(), std::back_inserter(named),
               [](const auto* thing) { return !xmlNameOf(*thing).second.empty(); });
  const auto keyOf = [](const auto* thing) { return xmlNameOf(*thing); };
  forEachClash(named, keyOf, [&](const auto* first, const auto* second) {
    const auto [uri, tag] = xmlNameOf(*second);
    findings.push_back({placeAt(second->origin()),
                        noun + " " + quotedName(*second) + " and " + quotedName(*first) + " have the XML name " +
                            encode(tag) + " of namespace " + encode(uri) + ".",
                        {{placeAt(first->origin()), quotedName(*first) + " is declared here"}}});
  });
}

template <class Things>
void addRepeatedNames(const Things& things, const std::string& noun, Findings& findings) {
  const auto keyOf = [](const auto* thing) { return nameText(*thing); };
  forEachClash(things, keyOf, [&](const auto* first, const auto* second) {
    findings.push_back({placeAt(second->origin()),
                        "Two " + noun + " are named " + quotedName(*second) + ".",
                        {{placeAt(first->origin()), "the other one is declared here"}}});
  });
}

/// The attributes of a set that are of an element it has before, each after the first one. Those among its base's are
/// the base's.
std::vector<std::pair<const MetaMetadata::MetaAttribute*, const MetaMetadata::MetaAttribute*>> repeatedAttributes(
    const DictionaryIndex::Set& set, const DictionaryIndex& index) {
  std::vector<std::pair<const MetaMetadata::MetaAttribute*, const MetaMetadata::MetaAttribute*>> repeated;
  std::map<const MetaMetadata::MetaElement*, const MetaMetadata::MetaAttribute*> firsts;
  const std::size_t inherited = index.inheritedAttributes(set);
  const auto& attributes = set.metaAttributes();
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    const auto [first, isFirst] = firsts.emplace(&attributes[i]->metaElement(), &*attributes[i]);
    if (!isFirst && i >= inherited) repeated.emplace_back(first->second, &*attributes[i]);
  }
  return repeated;
}

}  // namespace

Findings findSharedXmlNames(const Subject& subject) {
  Findings findings;
  addSharedXmlNames(subject.elements(), "Elements", findings);
  addSharedXmlNames(subject.sets(), "Sets", findings);
  return findings;
}

Findings findNamelessElements(const Subject& subject) {
  Findings findings;
  for (const DictionaryIndex::Element* element : subject.elements()) {
    if (!xmlNameOf(*element).second.empty()) continue;
    findings.push_back({placeAt(element->origin()), "Element " + quotedName(*element) +
                                                        " has no XML name, so that no scheme can be loaded after it."});
  }
  return findings;
}

Findings findRepeatedAttributes(const Subject& subject) {
  Findings findings;
  std::set<Templates::WideString> told;  // sets of which the base is not loaded have its attributes as their own
  for (const DictionaryIndex::Set* set : subject.sets()) {
    for (const auto& [first, second] : repeatedAttributes(*set, subject.index())) {
      if (!told.insert(second->origin().toString()).second) continue;
      findings.push_back({placeAt(second->origin()),
                          "Set " + quotedName(*set) + " has element " + quotedName(second->metaElement()) + " twice.",
                          {{placeAt(first->origin()), "it has the element here, too"}}});
    }
  }
  return findings;
}

Findings findRepeatedNames(const Subject& subject) {
  Findings findings;
  addRepeatedNames(subject.elements(), "elements", findings);
  addRepeatedNames(subject.sets(), "sets", findings);
  return findings;
}

}  // namespace MXF::Tessel::Tool
