// The tree of sets. Tags and names are indented with the tree, the other columns stand below each other in all of it.

#include "text/SetText.h"

#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/SetTree.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"
#include "text/ValueText.h"

#include <MetaMetadata/PropertyKeys.h>

#include <algorithm>
#include <utility>

namespace MXF::Tessel::Tool {

using MetaMetadata::Dictionary;
using MetaMetadata::MetaAttribute;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

constexpr std::size_t treeIndent = 2;       // of the tree as a whole, and of each level
constexpr std::size_t attributeIndent = 4;  // from their set: more than a level, so that the sets stand out
constexpr std::size_t deepestIndent = 8;    // further levels are not moved further, to leave room for names
constexpr std::size_t keyWidth = 47;
constexpr std::size_t keyColumn = pageWidth - keyWidth;
constexpr std::size_t tagWidth = 5;
constexpr std::size_t valueWidth = 14;
constexpr std::size_t valueColumn = pageWidth - valueWidth;
constexpr std::size_t statusWidth = 8;  // the longest status word, B.Effort
constexpr std::size_t statusColumn = valueColumn - columnGap - statusWidth;
constexpr std::size_t typeWidth = 24;  // the longest type without its targets, Batch of StrongReference
constexpr std::size_t typeColumn = statusColumn - columnGap - typeWidth;

std::size_t setColumn(const SetTreeEntry& entry) {
  return treeIndent * (1 + std::min(entry.depth, deepestIndent));
}

PlacedText placedBetween(std::size_t column, std::size_t next, std::u32string text) {
  return {column, next - columnGap - column, std::move(text)};
}

std::vector<PlacedText> attributeRow(std::size_t column, std::u32string tag, std::u32string name, std::u32string type,
                                     std::u32string status) {
  const std::size_t nameColumn = column + tagWidth + columnGap;
  return {{column, tagWidth, std::move(tag)},
          placedBetween(nameColumn, typeColumn, std::move(name)),
          {typeColumn, typeWidth, std::move(type)},
          {statusColumn, statusWidth, std::move(status)}};
}

void appendTitles(std::string& page) {
  appendParagraph(page, treeIndent,
                  U"Each set stands below its base, with how many attributes it inherits + adds, its key, and the "
                  U"attributes that it adds.");
  std::vector<PlacedText> row = attributeRow(treeIndent + attributeIndent, U"Tag", U"Name", U"Type", U"Status");
  row.push_back({valueColumn, valueWidth, U"Value"});
  for (PlacedText& title : row) title.style = Style::Title;
  appendRow(page, row);
}

std::u32string setTitle(const SetTreeEntry& entry) {
  std::u32string title = nameText(*entry.set);
  if (isAbstract(*entry.set)) title += U" (abstract)";
  const std::size_t added = entry.set->metaAttributes().size() - entry.inheritedAttributes;
  return title + U": " + decimal(entry.inheritedAttributes) + U'+' + decimal(added);
}

void appendAttribute(std::string& page, std::size_t column, const MetaAttribute& attribute,
                     const Dictionary& dictionary) {
  const auto& statusWords = MetaMetadata::AttributeRequiredStatus::instance();
  const Types::LocalTag* tag = attribute.localTag();
  std::vector<PlacedText> row = attributeRow(
      column, tag == nullptr ? U"-" : printable(tag->toString(textForm)), nameText(attribute.metaElement()),
      typeText(attribute.metaElement(), dictionary), printable(statusWords.toString(attribute.requiredStatus())));

  const Types::BaseType* value = attribute.distinguishedValue();
  const std::u32string text = value == nullptr ? std::u32string() : valueText(*value);
  const bool fits = columnsOf(text) <= valueWidth;
  if (fits) row.push_back({valueColumn, valueWidth, text});
  appendRow(page, row);
  if (!fits) appendParagraph(page, column + tagWidth + columnGap, U"Value: " + text);
}

void appendSet(std::string& page, const SetTreeEntry& entry, const Dictionary& dictionary) {
  const std::size_t column = setColumn(entry);
  PlacedText title = placedBetween(column, keyColumn, setTitle(entry));
  title.style = Style::Name;
  appendRow(page, {std::move(title), {keyColumn, keyWidth, printable(entry.set->key().toString(textForm))}});
  for (const std::u32string& note : noteTexts(*entry.set)) appendParagraph(page, column + attributeIndent, note);
  const auto& attributes = entry.set->metaAttributes();
  for (std::size_t i = entry.inheritedAttributes; i < attributes.size(); ++i) {
    appendAttribute(page, column + attributeIndent, *attributes[i], dictionary);
  }
}

}  // namespace

void appendSets(std::string& page, const Dictionary& dictionary) {
  const std::vector<SetTreeEntry> tree = setTree(dictionary);
  appendHeading(page, U"Sets", tree.size());
  if (tree.empty()) return;
  appendTitles(page);
  for (const SetTreeEntry& entry : tree) appendSet(page, entry, dictionary);
}

}  // namespace MXF::Tessel::Tool
