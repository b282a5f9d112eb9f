#pragma once

#include "diff/DictionaryComparison.h"

/// What the comparison consists of.
namespace MXF::Tessel::Tool {

/// The new label or key by the old one, of what is in both dumps under identifiers that differ in the version byte only.
using NewVersions = std::map<std::string, std::string>;

/// Finds what has only one such counterpart and is in one dump only under each of its identifiers.
NewVersions findNewVersions(const DictionaryDump& before, const DictionaryDump& after);

/// The dump with the old identifiers in place of the new ones, so that all else is compared as if they were the same.
DictionaryDump withOldVersions(const NewVersions& versions, DictionaryDump after);

/// Where differences go, and what they are differences of.
struct Comparison {
  const DictionaryDump& before;
  const DictionaryDump& after;  ///< With old labels and keys in place of those that differ in version only.
  const NewVersions& newVersions;
  std::vector<Change> changes;
  std::vector<std::string> notDumped;  ///< Properties that only one of the dumps was made with.

  /// Adds a change of one thing.
  void add(const Change& about, ChangeKind kind, Json old = nullptr, Json now = nullptr) {
    Change change = about;
    change.kind = kind;
    change.before = std::move(old);
    change.after = std::move(now);
    changes.push_back(std::move(change));
  }
};

/// A change without kind and values, to be completed by add().
Change aboutElement(const Comparison& comparison, const std::string& label);
Change aboutSet(const Comparison& comparison, const std::string& key);

/// A set as a value of a change: its key, and its name or null.
Json setReference(const Comparison& comparison, const std::string& key);

/// Whether only one of the dumps was made with a property.
bool isNotDumped(const Comparison& comparison, const std::string& property);

/// Adds the change of an identifier's version, if it has one.
/// @param about  the element or set.
void compareVersions(Comparison& comparison, const Change& about);
void compareElements(Comparison& comparison);
void compareSets(Comparison& comparison);
/// Tags that no attribute accounts for, and tags that stand for an element for which they did not.
void compareLocalTags(Comparison& comparison);
/// @param about  the element, set or attribute that has the properties.
void compareProperties(Comparison& comparison, const Change& about, const DumpedProperties& before,
                       const DumpedProperties& after);

/// Says of each change that another one tells already where that is.
void markRepeatedChanges(Comparison& comparison);

}  // namespace MXF::Tessel::Tool
