// Changes as text. Entry point: differenceText(); all else is local.

#include "diff/DifferenceText.h"

#include "diff/DumpedValueText.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t subjectIndent = 2;
constexpr std::size_t identifierWidth = 47;
constexpr std::size_t nameWidth = pageWidth - identifierWidth - columnGap - subjectIndent;
constexpr std::size_t changeIndent = 6;
constexpr std::size_t classWidth = 10;
constexpr std::size_t changeColumn = changeIndent + classWidth + columnGap;
/// More names would hide the changes themselves; the JSON has all of them.
constexpr std::size_t maximumNamesOfRepetitions = 8;

using Changes = std::vector<const Change*>;

std::u32string nameOf(const ChangedThing& subject) {
  return subject.name.empty() ? fromAscii(subject.id) : printable(subject.name);
}

/// The version byte of a label or key in dotted form.
std::u32string versionOf(const Json& identifier) {
  return fromAscii(identifier.get_ref<const std::string&>().substr(versionDigits, 2));
}

/// Whether something came or went, so that there is no other value beside it.
bool isAboutOneValue(ChangeKind kind) {
  switch (kind) {
    case ChangeKind::ElementRemoved:
    case ChangeKind::ElementAdded:
    case ChangeKind::AllowedSetRemoved:
    case ChangeKind::AllowedSetAdded:
    case ChangeKind::UndeclaredSetRemoved:
    case ChangeKind::UndeclaredSetAdded:
    case ChangeKind::AttributeRemoved:
    case ChangeKind::AttributeAdded:
    case ChangeKind::RequiredAttributeAdded:
    case ChangeKind::LocalTagRemoved:
    case ChangeKind::LocalTagAdded:
      return true;
    default:
      return false;
  }
}

std::u32string valuesText(const Change& change) {
  if (change.kind == ChangeKind::DocumentationChanged) {
    return change.before.is_null() ? U"new" : change.after.is_null() ? U"gone" : U"changed";
  }
  if (change.kind == ChangeKind::VersionChanged) return versionOf(change.before) + U" -> " + versionOf(change.after);
  if (change.kind == ChangeKind::LocalTagReused) {
    return dumpedValueText(change.after) + U", which stood for " + dumpedValueText(change.before);
  }
  if (isAboutOneValue(change.kind)) return dumpedValueText(change.before.is_null() ? change.after : change.before);
  return dumpedValueText(change.before) + U" -> " + dumpedValueText(change.after);
}

std::u32string sentenceOf(const Change& change) {
  const ChangeRule& rule = ruleOf(change.kind);
  const bool isAttribute = change.element && change.set;
  const bool hasValues = !change.before.is_null() || !change.after.is_null();
  return (isAttribute ? nameOf(*change.element) + U": " : U"") + fromAscii(rule.title) +
         (hasValues ? U": " + valuesText(change) : U"");
}

/// Where else the change comes up: in sets that inherit the attribute, say.
std::u32string repetitionText(const Change& change, const Changes& repetitions) {
  std::vector<const ChangedThing*> others;
  const ChangedThing* last = &subjectOf(change);
  for (const Change* repetition : repetitions) {
    const ChangedThing& subject = subjectOf(*repetition);
    if (subject.id != last->id && subject.id != subjectOf(change).id) others.push_back(&subject);
    last = &subject;
  }
  if (others.empty()) return U"the same in its other attributes";
  std::u32string text =
      U"the same in " + counted(others.size(), std::u32string(change.set ? U"other set" : U"other element"));
  if (others.size() > maximumNamesOfRepetitions) return text;
  const char32_t* separator = U": ";
  for (const ChangedThing* other : others) {
    text += separator + nameOf(*other);
    separator = U", ";
  }
  return text;
}

/// The changes that repeat a change, by its position.
std::vector<Changes> repetitionsIn(const std::vector<Change>& changes) {
  std::vector<Changes> repetitions(changes.size());
  for (const Change& change : changes) {
    if (change.sameAs) repetitions[*change.sameAs].push_back(&change);
  }
  return repetitions;
}

void appendChange(std::string& page, const Change& change, const Changes& repetitions) {
  const ChangeRule& rule = ruleOf(change.kind);
  appendRow(page, {{changeIndent, classWidth, fromAscii(className(rule)), rule.breaks ? Style::Error : Style::Hint},
                   {changeColumn, pageWidth - changeColumn, sentenceOf(change)}});
  if (repetitions.empty()) return;
  const std::size_t column = changeColumn + columnGap;
  appendRow(page, {{column, pageWidth - column, repetitionText(change, repetitions), Style::Title}});
}

/// Appends the changes of all elements or of all sets, each subject with a line of its own.
void appendChanges(std::string& page, const char32_t* title, const std::vector<Change>& changes, bool ofSets) {
  std::string body;
  std::size_t subjects = 0;
  const ChangedThing* current = nullptr;
  const std::vector<Changes> repetitions = repetitionsIn(changes);
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const Change& change = changes[i];
    if (change.set.has_value() != ofSets || change.sameAs) continue;
    const ChangedThing& subject = subjectOf(change);
    if (current == nullptr || current->id != subject.id) {
      appendRow(body, {{subjectIndent, nameWidth, nameOf(subject), Style::Name},
                       {subjectIndent + nameWidth + columnGap, identifierWidth, fromAscii(subject.id)}});
      ++subjects;
    }
    current = &subject;
    appendChange(body, change, repetitions[i]);
  }
  if (subjects == 0) return;
  appendHeading(page, title, subjects);
  page += body;
}

void appendDump(std::string& page, const char32_t* title, const DictionaryDump& dump) {
  appendParagraph(page, 0,
                  title + printable(dump.path) + U" (" + counted(dump.elements.size(), U"element") + U", " +
                      counted(dump.sets.size(), U"set") + U')');
}

}  // namespace

std::string differenceText(const DictionaryDump& before, const DictionaryDump& after,
                           const std::vector<Change>& changes, bool withHeader) {
  std::string page;
  if (withHeader) {
    appendDump(page, U"Old: ", before);
    appendDump(page, U"New: ", after);
  }
  appendChanges(page, U"Elements that differ", changes, false);
  appendChanges(page, U"Sets that differ", changes, true);
  const ChangeCounts counts = countChanges(changes);
  page += '\n';
  appendParagraph(page, 0,
                  changes.empty() ? U"No changes."
                                  : counted(counts.breaking, U"breaking change") + U", " +
                                        counted(counts.compatible, U"compatible change") + U'.',
                  Style::Heading);
  return withHeader ? page : page.substr(1);  // without the empty line that parts it from the header
}

}  // namespace MXF::Tessel::Tool
