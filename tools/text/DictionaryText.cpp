// The dictionary as tables for people. Entry point: dictionaryText(); all else is local. The tree of sets has a file of
// its own.

#include "text/DictionaryText.h"

#include "analysis/PendingReferences.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/SetText.h"
#include "text/TextLayout.h"
#include "text/TextTable.h"
#include "text/Unicode.h"

#include <map>

namespace MXF::Tessel::Tool {

using MetaMetadata::Dictionary;
using MetaMetadata::MetaElement;

namespace {

void appendLoads(std::string& page, const std::vector<LoadRecord>& loads) {
  TextTable table({{U"Kind"}, {U"File", true}, {U"Result"}});
  for (const LoadRecord& load : loads) {
    std::vector<std::u32string> notes;
    if (load.failure) {
      notes.push_back(withoutExtraBlanks(printable(load.failure->message)) + U" [" +
                      fromAscii(load.failure->className) + U']');
    }
    table.addRow(
        {fromAscii(fileKindName(load.file.kind)), printable(load.file.path), load.failure ? U"failed" : U"loaded"},
        notes);
  }
  appendHeading(page, U"Files", loads.size());
  table.appendTo(page);
}

void appendElements(std::string& page, const Dictionary& dictionary) {
  TextTable table({{U"Label"}, {U"Type", true}, {U"Name", true}});
  std::size_t count = 0;
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry, ++count) {
    const MetaElement& element = *entry->second;
    table.addRow({printable(entry->first.toString(textForm)), typeText(element, dictionary), nameText(element)},
                 noteTexts(element));
  }
  appendHeading(page, U"Elements", count);
  table.appendTo(page);
}

void appendLocalTags(std::string& page, const Dictionary& dictionary) {
  TextTable table({{U"Tag"}, {U"Label"}, {U"Name", true}});
  for (const auto& [tag, label] : dictionary.localTags()) {
    const MetaElement* element = dictionary.findMetaElement(label);
    table.addRow({printable(tag.toString(textForm)), printable(label.toString(textForm)),
                  element == nullptr ? std::u32string() : nameText(*element)});
  }
  appendHeading(page, U"Local tags", dictionary.localTags().size());
  table.appendTo(page);
}

/// By namespace, as its name is long: on a line of its own it stays in one piece.
void appendUnresolvedReferences(std::string& page, const Dictionary& dictionary) {
  std::map<Templates::WideString, TextTable> tables;
  std::size_t count = 0;
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    std::map<Templates::WideString, std::u32string> sets;
    for (const PendingReference& reference : pendingReferences(*entry->second)) {
      std::u32string& names = sets[reference.namespaceUri];
      names += (names.empty() ? U"" : U", ") + printable(reference.setName);
      ++count;
    }
    for (const auto& [uri, names] : sets) {
      TextTable& table =
          tables.try_emplace(uri, std::vector<TextTable::Column>{{U"Element", true}, {U"Sets", true}}).first->second;
      table.addRow({nameText(*entry->second), names});
    }
  }
  appendHeading(page, U"Unresolved references", count);
  for (const auto& [uri, table] : tables) {
    if (&table != &tables.begin()->second) page += '\n';
    appendParagraph(page, 2, printable(uri));
    table.appendTo(page);
  }
}

}  // namespace

std::string dictionaryText(const LoadOutcome& outcome) {
  std::string page;
  appendParagraph(page, 0, U"Multiplex namespace: " + printable(outcome.targetNamespace));
  appendLoads(page, outcome.loads);
  appendElements(page, outcome.dictionary);
  appendSets(page, outcome.dictionary);
  appendLocalTags(page, outcome.dictionary);
  appendUnresolvedReferences(page, outcome.dictionary);
  return page;
}

}  // namespace MXF::Tessel::Tool
