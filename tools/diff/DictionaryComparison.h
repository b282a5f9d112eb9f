#pragma once

#include "diff/ChangeKinds.h"
#include "diff/DictionaryDump.h"

#include <optional>
#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// An element or set that a change is about.
struct ChangedThing {
  std::string id;    ///< Label or key, the old one where they differ in version.
  std::string name;  ///< Registry name, the old one if there is one; may be empty.
};

/// One difference. It is about an element, about a set, or, with both, about an attribute.
struct Change {
  ChangeKind kind;
  std::optional<ChangedThing> element;
  std::optional<ChangedThing> set;
  Json before;  ///< A text, a reference to something, a distinguished value as in a dump, or null.
  Json after;   ///< The same.
  /// Position of the change of another element or set that tells the same already: of an attribute that is inherited,
  /// that of the set that declares it.
  std::optional<std::size_t> sameAs;
};

/// What a change is told below: its set if there is one, else its element.
inline const ChangedThing& subjectOf(const Change& change) {
  return change.set ? *change.set : *change.element;
}

/// All differences between two dumps: those of elements in label order, then those of sets in key order. For each the
/// order is that of the change kinds, except that attributes come one by one in the old order, then the new ones.
std::vector<Change> compareDictionaries(const DictionaryDump& before, const DictionaryDump& after);

struct ChangeCounts {
  std::size_t breaking = 0;
  std::size_t compatible = 0;
};

/// How many changes there are, those left out that another one tells.
ChangeCounts countChanges(const std::vector<Change>& changes);

/// Why two dumps cannot be compared: the one was made with an option that makes other sets of the same schemas, and the
/// other without it. A line "PATH: error: ..."; nothing when they can be compared, or do not tell their options.
std::optional<std::string> whyNotComparable(const DictionaryDump& before, const DictionaryDump& after);

/// What may make a comparison mean something else than its reader thinks, such as dumps with different options.
/// Lines "PATH: warning: ...".
std::vector<std::string> comparisonWarnings(const DictionaryDump& before, const DictionaryDump& after);

}  // namespace MXF::Tessel::Tool
