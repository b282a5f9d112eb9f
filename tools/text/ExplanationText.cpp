// What is known of one element or set, as text. Entry point: explanationText(); all else is local.

#include "text/ExplanationText.h"

#include "analysis/AttributeSources.h"
#include "analysis/OwnUses.h"
#include "analysis/PendingReferences.h"
#include "loading/Failure.h"
#include "text/AttributeText.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/TextLayout.h"
#include "text/TextTable.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>

#include <map>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaAttribute;
using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;
using MetaMetadata::PropertyMap;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

constexpr std::size_t indent = 2;
constexpr std::size_t factWidth = 13;
constexpr std::size_t factColumn = indent + factWidth + columnGap;

/// A line "What   Text"; nothing when there is no text.
void appendFact(std::string& page, std::u32string what, const std::u32string& text) {
  if (text.empty()) return;
  appendRow(page, {{indent, factWidth, std::move(what), Style::Title}, {factColumn, pageWidth - factColumn, text}});
}

std::u32string titleOf(const MetaMetadataSet& set) {
  return nameText(set) + (isAbstract(set) ? U" (abstract)" : U"");
}

template <class List, class ToText>
std::u32string listed(const List& list, const char32_t* separator, const ToText& toText) {
  std::u32string text;
  for (const auto& item : list) text += (text.empty() ? U"" : separator) + toText(item);
  return text;
}

std::u32string setNames(const DictionaryIndex::Sets& sets) {
  return listed(sets, U", ", [](const MetaMetadataSet* set) { return titleOf(*set); });
}

void appendNames(std::string& page, const PropertyMap& map) {
  appendFact(page, U"XML name", propertyText(map, PropertyKeys::xmlTagName));
  appendFact(page, U"XML of items", propertyText(map, PropertyKeys::xmlChildTagName));
  appendFact(page, U"Namespace", propertyText(map, PropertyKeys::xmlNamespaceURI));
}

void appendOrigin(std::string& page, const PropertyMap& map) {
  appendFact(page, U"Declared at", printable(shownPath(map.origin().toString())));
}

std::u32string tagOrDash(const MetaAttribute& attribute) {
  const std::u32string tag = tagText(attribute);
  return tag.empty() ? U"-" : tag;
}

void appendUses(std::string& page, const DictionaryIndex& index, const MetaElement& element) {
  TextTable table({{U"Set", true}, {U"Tag"}, {U"Status"}, {U"Value", true}});
  const std::vector<OwnUse> uses = ownUsesOf(index, element);
  for (const OwnUse& use : uses) {
    std::vector<std::u32string> notes;
    if (!use.heirs.empty()) notes.push_back(U"inherited by " + setNames(use.heirs));
    table.addRow(
        {titleOf(*use.set), tagOrDash(*use.attribute), statusText(*use.attribute), distinguishedText(*use.attribute)},
        notes);
  }
  appendHeading(page, U"Used by sets", uses.size());
  table.appendTo(page);
}

void appendTargets(std::string& page, const DictionaryIndex& index, const MetaElement& element) {
  const DictionaryIndex::Sets targets = index.targetsOf(element);
  const std::vector<PendingReference> pending = pendingReferences(element);
  if (targets.empty() && pending.empty()) return;
  TextTable table({{U"Key", true}, {U"Set", true}});
  for (const MetaMetadataSet* set : targets) table.addRow({printable(set->key().toString(textForm)), titleOf(*set)});
  for (const PendingReference& reference : pending) {
    table.addRow({U"not declared", printable(reference.setName)}, {U"in " + printable(reference.namespaceUri)});
  }
  appendHeading(page, U"May refer to sets", targets.size() + pending.size());
  table.appendTo(page);
}

void appendElement(std::string& page, const DictionaryIndex& index, const MetaElement& element) {
  appendParagraph(page, 0, U"Element: " + nameText(element), Style::Heading);
  appendFact(page, U"Label", printable(element.universalLabel().toString(textForm)));
  appendFact(page, U"Type", dataTypeText(element));
  appendFact(page, U"Local tags",
             listed(index.dictionary().localTagsOf(element.universalLabel()), U", ",
                    [](const Types::LocalTag& tag) { return printable(tag.toString(textForm)); }));
  appendNames(page, element);
  appendFact(page, U"Length", withoutExtraBlanks(propertyText(element, PropertyKeys::lengthDescription)));
  appendFact(page, U"Documentation", withoutExtraBlanks(propertyText(element, PropertyKeys::documentation)));
  appendOrigin(page, element);
  appendTargets(page, index, element);
  appendUses(page, index, element);
}

/// The chain of bases, or what is known of bases that are not there.
std::u32string basesText(const DictionaryIndex& index, const MetaMetadataSet& set, AttributeSources& sources) {
  const DictionaryIndex::Sets bases = index.basesOf(set);
  std::u32string text = listed(bases, U" < ", [](const MetaMetadataSet* base) { return titleOf(*base); });
  const auto missing = index.endOfBasesOf(set);
  const std::u32string notThere = missing ? printable(*missing) + U" (not loaded)"
                                          : listed(sources.missingTypes(set), U" < ", [](const ExtendedType& type) {
                                              return printable(type.name) + printable(whyMissing(type));
                                            });
  return text + (text.empty() || notThere.empty() ? U"" : U" < ") + notThere;
}

/// The base that an attribute is from. Why a base is not there is told where they are listed.
std::u32string sourceText(const AttributeSource& source) {
  return source.missingType ? printable(source.missingType->name) : nameText(*source.set);
}

/// @param own  whether to list the set's own attributes or the inherited ones.
void appendAttributes(std::string& page, const DictionaryIndex& index, const MetaMetadataSet& set,
                      const std::vector<AttributeSource>& sources, bool own) {
  std::vector<TextTable::Column> columns{{U"Tag"}, {U"Name", true}, {U"Type", true}, {U"Status"}, {U"Value", true}};
  if (!own) columns.push_back({U"From", true});
  TextTable table(std::move(columns));
  std::size_t count = 0;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (sources[i].isInherited(set) == own) continue;
    const MetaAttribute& attribute = *set.metaAttributes()[i];
    std::vector<std::u32string> cells{tagOrDash(attribute), nameText(attribute.metaElement()),
                                      typeText(attribute.metaElement(), index.dictionary()), statusText(attribute),
                                      distinguishedText(attribute)};
    if (!own) cells.push_back(sourceText(sources[i]));
    table.addRow(std::move(cells));
    ++count;
  }
  if (!own && count == 0) return;
  appendHeading(page, own ? U"Own attributes" : U"Inherited attributes", count);
  table.appendTo(page);
}

void appendReferences(std::string& page, const DictionaryIndex& index, const MetaMetadataSet& set) {
  std::vector<std::pair<const MetaElement*, DictionaryIndex::Sets>> targetsOfElements;
  std::map<const MetaElement*, std::size_t> positions;
  for (const MetaMetadataSet* target : index.withBasesOf(set)) {
    for (const MetaElement* element : index.referencesTo(*target)) {
      const auto [position, isNew] = positions.emplace(element, targetsOfElements.size());
      if (isNew) targetsOfElements.push_back({element, {}});
      targetsOfElements[position->second].second.push_back(target);
    }
  }
  TextTable table({{U"Element", true}, {U"Type", true}, {U"In sets", true}, {U"As", true}});
  for (const auto& [element, targets] : targetsOfElements) {
    table.addRow({nameText(*element), dataTypeText(*element), setNames(holdersOf(index, *element)), setNames(targets)});
  }
  appendHeading(page, U"Referenced by elements", targetsOfElements.size());
  table.appendTo(page);
}

void appendSet(std::string& page, const DictionaryIndex& index, const MetaMetadataSet& set,
               AttributeSources& attributeSources) {
  appendParagraph(page, 0, U"Set: " + titleOf(set), Style::Heading);
  appendFact(page, U"Key", printable(set.key().toString(textForm)));
  appendFact(page, U"Derived from", basesText(index, set, attributeSources));
  appendFact(page, U"Base of", setNames(index.derivedFrom(set)));
  appendNames(page, set);
  appendFact(page, U"Documentation", withoutExtraBlanks(propertyText(set, PropertyKeys::documentation)));
  appendOrigin(page, set);
  const std::vector<AttributeSource> sources = attributeSources.of(set);
  for (const bool own : {true, false}) appendAttributes(page, index, set, sources, own);
  appendReferences(page, index, set);
}

const char32_t* reasonText(Nearness nearness) {
  switch (nearness) {
    case Nearness::Version:
      return U"other version byte";
    case Nearness::Wildcard:
      return U"the same where 7F stands for any byte";
    case Nearness::Case:
      return U"other case or spacing";
    case Nearness::Bytes:
      return U"some other bytes";
    case Nearness::Pattern:
      return U"fits the pattern";
    case Nearness::BytesPart:
      return U"holds these bytes";
    case Nearness::Spelling:
      return U"similar spelling";
    case Nearness::Part:
      break;
  }
  return U"holds the text";
}

/// The name, and the XML name when it is another one than that in a different form.
std::u32string bothNames(const PropertyMap& map) {
  const std::u32string name = nameText(map);
  const std::u32string xmlName = propertyText(map, PropertyKeys::xmlTagName);
  return nameLetters(name) == nameLetters(xmlName) ? name : name + U" (" + xmlName + U")";
}

void appendNearMisses(std::string& page, const DictionaryIndex& index, const Templates::WideString& question,
                      const LookupResult& found) {
  std::u32string text = U"Nothing is called \"" + printable(question) + U'"';
  if (index.elements().empty() && index.sets().empty()) {
    appendParagraph(page, 0, text + U": no elements and no sets are loaded.");
    return;
  }
  if (found.wrongNumberOfBytes > 0) {
    text += U"; it has " + decimal(found.wrongNumberOfBytes) + U" bytes, and labels and keys have 16";
  }
  appendParagraph(page, 0,
                  text + (found.nearMisses.empty() ? U", and nothing comes near it." : U". These come near it:"));
  TextTable table({{U"Kind"}, {U"Label or key"}, {U"Name", true}, {U"How it differs", true}});
  for (const NearMiss& miss : found.nearMisses) {
    const MetaElement* element = miss.entry.element;
    table.addRow({element != nullptr ? U"element" : U"set",
                  printable(element != nullptr ? element->universalLabel().toString(textForm)
                                               : miss.entry.set->key().toString(textForm)),
                  bothNames(element != nullptr ? static_cast<const PropertyMap&>(*element) : *miss.entry.set),
                  reasonText(miss.nearness)});
  }
  table.appendTo(page);
  if (found.furtherNearMisses > 0) appendParagraph(page, indent, U"and " + decimal(found.furtherNearMisses) + U" more");
}

}  // namespace

std::string explanationText(const DictionaryIndex& index, const Templates::WideString& question,
                            const LookupResult& found) {
  std::string page;
  AttributeSources attributeSources(index);
  for (const Entry& entry : found.matches) {
    if (!page.empty()) page += "\n\n";
    if (entry.element != nullptr) appendElement(page, index, *entry.element);
    if (entry.set != nullptr) appendSet(page, index, *entry.set, attributeSources);
  }
  if (found.matches.empty()) appendNearMisses(page, index, question, found);
  return page;
}

}  // namespace MXF::Tessel::Tool
