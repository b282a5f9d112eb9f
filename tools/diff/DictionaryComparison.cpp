// The comparison as a whole: its steps, and what they share. Entry points: compareDictionaries(), comparisonWarnings().

#include "diff/DictionaryComparison.h"

#include "diff/ComparisonSteps.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

/// A property that a dump has only when it was asked for, and the option that asks.
struct OptionalProperty {
  const char* key;
  const char* option;
  bool DumpOptions::*asked;
};

constexpr OptionalProperty optionalProperties[] = {
    {"Documentation", "--documentation", &DumpOptions::documentation},
    {"LengthDescription", "--length-description", &DumpOptions::lengthDescription}};

template <class Map>
bool anyHas(const Map& map, const char* property) {
  return std::any_of(map.begin(), map.end(),
                     [&](const auto& entry) { return findProperty(entry.second.properties, property) != nullptr; });
}

/// Whether it was asked for; in a dump that does not tell, whether it is there.
bool isDumped(const DictionaryDump& dump, const OptionalProperty& property) {
  if (dump.options) return *dump.options.*property.asked;
  return anyHas(dump.elements, property.key) || anyHas(dump.sets, property.key);
}

bool isEmpty(const DictionaryDump& dump) {
  return dump.elements.empty() && dump.sets.empty();
}

bool hasAbstractSets(const DictionaryDump& dump) {
  return std::any_of(dump.sets.begin(), dump.sets.end(), [](const auto& entry) {
    const std::string* isAbstract = findProperty(entry.second.properties, "abstract");
    return isAbstract != nullptr && *isAbstract == "true";
  });
}

/// One of the dumps has what the other lacks as a whole, which more likely comes of an option than of the schemas.
const DictionaryDump* onlyOne(const DictionaryDump& before, const DictionaryDump& after, bool inBefore, bool inAfter) {
  if (inBefore == inAfter || isEmpty(before) || isEmpty(after)) return nullptr;
  return inBefore ? &before : &after;
}

std::string warning(const DictionaryDump& dump, const std::string& text) {
  return dump.path + ": warning: " + text;
}

void warnOfOptions(std::vector<std::string>& warnings, const DictionaryDump& before, const DictionaryDump& after) {
  for (const OptionalProperty& property : optionalProperties) {
    const DictionaryDump* dump = onlyOne(before, after, isDumped(before, property), isDumped(after, property));
    if (dump == nullptr) continue;
    warnings.push_back(warning(*dump, std::string("was dumped with ") + property.option +
                                          " and the other dump was not: that is not compared"));
  }
  if (before.options && after.options) return;
  if (const DictionaryDump* dump = onlyOne(before, after, hasAbstractSets(before), hasAbstractSets(after))) {
    warnings.push_back(warning(*dump,
                               "holds abstract sets and the other dump does not: if that comes of "
                               "--abstract-groups, dump both with it or both without"));
  }
}

void warnOfDump(std::vector<std::string>& warnings, const DictionaryDump& dump) {
  if (dump.failedLoads > 0) {
    warnings.push_back(
        warning(dump, "was dumped although schemas failed to load: what it lacks may have been in them"));
  }
  if (isEmpty(dump)) warnings.push_back(warning(dump, "holds neither elements nor sets"));
  if (dump.unknownMembers.empty()) return;
  std::string names;
  for (const std::string& name : dump.unknownMembers) names += (names.empty() ? "" : ", ") + name;
  warnings.push_back(warning(dump, "has members that this version does not know and does not compare: " + names));
}

const char* flavourOf(const DictionaryDump& dump) {
  return dump.targetNamespace == "urn:SMPTE:S377M" ? "URN" : "registry";
}

}  // namespace

Json setReference(const Comparison& comparison, const std::string& key) {
  const Change about = aboutSet(comparison, key);
  return {{"key", key}, {"name", about.set->name.empty() ? Json() : Json(about.set->name)}};
}

Change aboutElement(const Comparison& comparison, const std::string& label) {
  const std::string old = elementName(comparison.before, label);
  Change change{};
  change.element = ChangedThing{label, old.empty() ? elementName(comparison.after, label) : old};
  return change;
}

Change aboutSet(const Comparison& comparison, const std::string& key) {
  const std::string old = setName(comparison.before, key);
  Change change{};
  change.set = ChangedThing{key, old.empty() ? setName(comparison.after, key) : old};
  return change;
}

bool isNotDumped(const Comparison& comparison, const std::string& property) {
  return std::any_of(std::begin(comparison.notDumped), std::end(comparison.notDumped),
                     [&](const std::string& key) { return key == property; });
}

std::vector<Change> compareDictionaries(const DictionaryDump& before, const DictionaryDump& after) {
  const NewVersions versions = findNewVersions(before, after);
  std::optional<DictionaryDump> renamed;
  if (!versions.empty()) renamed = withOldVersions(versions, after);
  Comparison comparison{before, renamed ? *renamed : after, versions, {}, {}};
  for (const OptionalProperty& property : optionalProperties) {
    const bool isInOne = onlyOne(before, after, isDumped(before, property), isDumped(after, property)) != nullptr;
    if (isInOne) comparison.notDumped.emplace_back(property.key);
  }
  compareElements(comparison);
  compareLocalTags(comparison);
  // Tags were added behind the elements that they belong to.
  std::stable_sort(comparison.changes.begin(), comparison.changes.end(),
                   [](const Change& a, const Change& b) { return a.element->id < b.element->id; });
  compareSets(comparison);
  markRepeatedChanges(comparison);
  return std::move(comparison.changes);
}

ChangeCounts countChanges(const std::vector<Change>& changes) {
  ChangeCounts counts;
  for (const Change& change : changes) {
    if (!change.sameAs) ++(ruleOf(change.kind).breaks ? counts.breaking : counts.compatible);
  }
  return counts;
}

std::optional<std::string> whyNotComparable(const DictionaryDump& before, const DictionaryDump& after) {
  if (!before.options || !after.options) return std::nullopt;
  if (before.options->abstractGroups == after.options->abstractGroups) return std::nullopt;
  const DictionaryDump& with = before.options->abstractGroups ? before : after;
  const DictionaryDump& without = before.options->abstractGroups ? after : before;
  return with.path + ": error: was dumped with --abstract-groups, and " + without.path +
         " without: dump both with it, or both without";
}

std::vector<std::string> comparisonWarnings(const DictionaryDump& before, const DictionaryDump& after) {
  std::vector<std::string> warnings;
  if (before.targetNamespace != after.targetNamespace) {
    warnings.push_back(warning(after, std::string("comes of schemas in the ") + flavourOf(after) + " flavour, and " +
                                          before.path + " in the " + flavourOf(before) +
                                          " flavour: what they declare is compared, not how"));
  }
  warnOfDump(warnings, before);
  warnOfDump(warnings, after);
  warnOfOptions(warnings, before, after);
  return warnings;
}

}  // namespace MXF::Tessel::Tool
