// Labels and keys of which only the version byte differs: readers take them for the same (SMPTE ST 336), so that they are
// one thing here as well.

#include "diff/ComparisonSteps.h"

#include <algorithm>
#include <utility>

namespace MXF::Tessel::Tool {

namespace {

std::string withoutVersion(std::string identifier) {
  return identifier.replace(versionDigits, 2, "..");
}

/// The identifiers of one map that are not in the other, by what they are but for the version.
template <class Map>
std::map<std::string, std::vector<std::string>> onlyIn(const Map& map, const Map& other) {
  std::map<std::string, std::vector<std::string>> identifiers;
  for (const auto& entry : map) {
    if (other.count(entry.first) == 0) identifiers[withoutVersion(entry.first)].push_back(entry.first);
  }
  return identifiers;
}

template <class Map>
void findNewVersionsIn(const Map& before, const Map& after, NewVersions& versions) {
  const auto gone = onlyIn(before, after);
  for (const auto& [identifier, added] : onlyIn(after, before)) {
    const auto old = gone.find(identifier);
    const bool isOneEach = old != gone.end() && old->second.size() == 1 && added.size() == 1;
    if (isOneEach) versions[old->second.front()] = added.front();
  }
}

using OldVersions = std::map<std::string, std::string>;

void restore(std::string& identifier, const OldVersions& old) {
  const auto found = old.find(identifier);
  if (found != old.end()) identifier = found->second;
}

/// The same map under the old identifiers, which its values have in a member, too.
template <class Map, class Member>
Map restored(Map& map, Member identifier, const OldVersions& old) {
  Map result;
  for (auto& entry : map) {
    restore(entry.second.*identifier, old);
    std::string key = entry.second.*identifier;
    result.emplace(std::move(key), std::move(entry.second));
  }
  return result;
}

void restoreReferences(DictionaryDump& dump, const OldVersions& old) {
  for (auto& entry : dump.elements) {
    std::set<std::string> keys;
    for (std::string key : entry.second.allowedSets) {
      restore(key, old);
      keys.insert(std::move(key));
    }
    entry.second.allowedSets = std::move(keys);
  }
  for (auto& entry : dump.sets) {
    for (DumpedAttribute& attribute : entry.second.attributes) restore(attribute.element, old);
    const auto base = entry.second.properties.find("baseGroupUL");
    if (base != entry.second.properties.end()) restore(base->second, old);
  }
  std::set<std::pair<std::string, std::string>> tags;
  for (auto [tag, label] : dump.localTags) {
    restore(label, old);
    tags.emplace(tag, label);
  }
  dump.localTags = std::move(tags);
}

}  // namespace

NewVersions findNewVersions(const DictionaryDump& before, const DictionaryDump& after) {
  NewVersions versions;
  findNewVersionsIn(before.elements, after.elements, versions);
  findNewVersionsIn(before.sets, after.sets, versions);
  return versions;
}

DictionaryDump withOldVersions(const NewVersions& versions, DictionaryDump after) {
  OldVersions old;
  for (const auto& [before, now] : versions) old[now] = before;
  after.elements = restored(after.elements, &DumpedElement::label, old);
  after.sets = restored(after.sets, &DumpedSet::key, old);
  restoreReferences(after, old);
  return after;
}

void compareVersions(Comparison& comparison, const Change& about) {
  const std::string& old = subjectOf(about).id;
  const auto found = comparison.newVersions.find(old);
  if (found != comparison.newVersions.end()) comparison.add(about, ChangeKind::VersionChanged, old, found->second);
}

}  // namespace MXF::Tessel::Tool
