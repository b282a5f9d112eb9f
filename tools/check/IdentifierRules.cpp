// Local tags, labels and keys that readers cannot tell apart, or that tell one thing apart from itself.

#include "check/RuleFamilies.h"
#include "text/IdentifierForm.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

namespace {

/// A local tag given to an element.
struct TagAssignment {
  Types::LocalTag tag;
  const MetaMetadata::MetaElement* element;
  const DictionaryIndex::Set* set;
  Place place;

  [[nodiscard]] std::string elementAndSet() const { return quotedName(*element) + " in set " + quotedName(*set); }
};

/// The first assignment of each tag to each element.
std::vector<TagAssignment> tagAssignments(const Subject& subject) {
  std::vector<TagAssignment> assignments;
  std::set<std::pair<Types::LocalTag, Types::UniversalLabel>> seen;
  for (const auto& [set, attribute] : subject.ownAttributes()) {
    const Types::LocalTag* tag = attribute->localTag();
    const MetaMetadata::MetaElement& element = attribute->metaElement();
    if (tag == nullptr || !seen.emplace(*tag, element.universalLabel()).second) continue;
    assignments.push_back({*tag, &element, set, placeAt(attribute->origin())});
  }
  return assignments;
}

const Types::UniversalLabel& identifierOf(const DictionaryIndex::Element& element) {
  return element.universalLabel();
}
const KLV::Key& identifierOf(const DictionaryIndex::Set& set) {
  return set.key();
}

/// Labels or keys of which all bytes but that of the version are the same.
template <class Things>
void addOtherVersions(const Things& things, const std::string& noun, Findings& findings) {
  const auto keyOf = [&](const auto* thing) {
    auto bytes = identifierOf(*thing).bytes();
    bytes[versionByte] = 0;
    return std::vector<unsigned char>(bytes.begin(), bytes.end());
  };
  forEachClash(things, keyOf, [&](const auto* first, const auto* second) {
    findings.push_back({placeAt(second->origin()),
                        noun + " of " + quotedName(*second) + " and " + quotedName(*first) +
                            " differ in the version byte only: " + identifierText(identifierOf(*second)) + " and " +
                            identifierText(identifierOf(*first)) + ".",
                        {{placeAt(first->origin()), quotedName(*first) + " is declared here"}}});
  });
}

template <class Bytes>
bool areAll(const Bytes& bytes, unsigned char value) {
  return std::all_of(bytes.begin(), bytes.end(), [value](unsigned char byte) { return byte == value; });
}

template <class Things>
void addUniform(const Things& things, const std::string& noun, Findings& findings) {
  for (const auto* thing : things) {
    const auto& bytes = identifierOf(*thing).bytes();
    if (!areAll(bytes, bytes[0]) || (bytes[0] != 0 && bytes[0] != 0xFF)) continue;
    findings.push_back({placeAt(thing->origin()), "The " + noun + " of " + quotedName(*thing) + " is all " +
                                                      (bytes[0] == 0 ? "zeros." : "ones.")});
  }
}

/// Those that do not begin as universal labels of a category do.
template <class Things>
void addOtherKinds(const Things& things, const std::string& noun, unsigned char category, Findings& findings) {
  constexpr unsigned char smpte[] = {0x06, 0x0E, 0x2B, 0x34};
  constexpr unsigned char firstOfUuids = 0x80;  // a UUID stands in for a label with its halves exchanged
  for (const auto* thing : things) {
    const auto& bytes = identifierOf(*thing).bytes();
    const bool isSmpte = std::equal(std::begin(smpte), std::end(smpte), bytes.begin());
    const bool fits = isSmpte ? bytes[std::size(smpte)] == category : bytes[0] >= firstOfUuids || areAll(bytes, 0);
    if (fits) continue;
    findings.push_back({placeAt(thing->origin()), "The " + noun + " of " + quotedName(*thing) +
                                                      " begins as none does: " + identifierText(identifierOf(*thing)) +
                                                      "."});
  }
}

/// Sets of which the key is the label of an element.
void addKeysOfElements(const Subject& subject, Findings& findings) {
  const auto bytesOf = [](const auto& identifier) {
    return std::vector<unsigned char>(identifier.bytes().begin(), identifier.bytes().end());
  };
  std::map<std::vector<unsigned char>, const DictionaryIndex::Element*> elements;
  for (const DictionaryIndex::Element* element : subject.elements())
    elements.emplace(bytesOf(element->universalLabel()), element);
  for (const DictionaryIndex::Set* set : subject.sets()) {
    const auto element = elements.find(bytesOf(set->key()));
    if (element == elements.end()) continue;
    findings.push_back({placeAt(set->origin()),
                        "The key of set " + quotedName(*set) + " is the label of element " +
                            quotedName(*element->second) + ": " + identifierText(set->key()) + ".",
                        {{placeAt(element->second->origin()), "the element is declared here"}}});
  }
}

}  // namespace

Findings findIdentifiersOfOtherKinds(const Subject& subject) {
  constexpr unsigned char dictionaryItem = 0x01;
  constexpr unsigned char group = 0x02;
  Findings findings;
  addOtherKinds(subject.elements(), "label", dictionaryItem, findings);
  addOtherKinds(subject.sets(), "key", group, findings);
  return findings;
}

Findings findImpossibleIdentifiers(const Subject& subject) {
  Findings findings;
  addUniform(subject.elements(), "label", findings);
  addUniform(subject.sets(), "key", findings);
  addKeysOfElements(subject, findings);
  const Types::LocalTag none(L"00.00", textForm);
  for (const auto& [set, attribute] : subject.ownAttributes()) {
    const Types::LocalTag* tag = attribute->localTag();
    if (tag == nullptr || !(*tag == none)) continue;
    findings.push_back({placeAt(attribute->origin()), "The local tag of " + quotedName(attribute->metaElement()) +
                                                          " in set " + quotedName(*set) + " is all zeros."});
  }
  return findings;
}

Findings findSharedLocalTags(const Subject& subject) {
  Findings findings;
  const auto keyOf = [](const TagAssignment& assignment) { return assignment.tag; };
  forEachClash(tagAssignments(subject), keyOf, [&](const TagAssignment& first, const TagAssignment& second) {
    findings.push_back({second.place,
                        "Local tag " + identifierText(second.tag) + " stands for two elements: " +
                            second.elementAndSet() + ", and " + first.elementAndSet() + ".",
                        {{first.place, quotedName(*first.element) + " has the tag here"}}});
  });
  return findings;
}

Findings findElementsOfManyTags(const Subject& subject) {
  Findings findings;
  const auto keyOf = [](const TagAssignment& assignment) { return assignment.element; };
  forEachClash(tagAssignments(subject), keyOf, [&](const TagAssignment& first, const TagAssignment& second) {
    findings.push_back(
        {second.place,
         "Element " + quotedName(*second.element) + " has two local tags: " + identifierText(second.tag) + " in set " +
             quotedName(*second.set) + ", and " + identifierText(first.tag) + " in set " + quotedName(*first.set) + ".",
         {{first.place, "it has the tag " + identifierText(first.tag) + " here"}}});
    if (first.set == second.set) findings.back().remedy = "Keep one of the two references; one set needs one of them.";
  });
  return findings;
}

Findings findLabelsOfOtherVersions(const Subject& subject) {
  Findings findings;
  addOtherVersions(subject.elements(), "Labels", findings);
  addOtherVersions(subject.sets(), "Keys", findings);
  return findings;
}

}  // namespace MXF::Tessel::Tool
