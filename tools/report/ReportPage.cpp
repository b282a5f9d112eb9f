// The page as a whole. Entry point: reportPage(); all else is local. What the page looks like is in the templates; here
// is what they are filled with, beside single sets and elements.

#include "report/ReportPage.h"

#include "report/Assets.h"
#include "report/ElementData.h"
#include "report/Links.h"
#include "report/SetData.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/SetTree.h"
#include "text/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <stdexcept>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;

namespace {

// Deeper levels of the tree are shown at this one: browsers stop nesting somewhere, and a schema decides how deep it is.
constexpr std::size_t deepestLevel = 12;

/// Where, what and why, as the other commands tell it.
TemplateData failureData(const LoadRecord& record) {
  if (!record.failure) return {false};
  const Failure& failure = *record.failure;
  const std::u32string message = printable(messageWithoutPlace(failure)) + U" [" + fromAscii(failure.className) + U']';
  const std::u32string place = printable(shownPath(failure.place.toString()));
  const std::u32string meaning = printable(record.explanation.meaning);
  std::u32string text = (place.empty() ? U"" : place + U": ") + (meaning.empty() ? U"" : meaning + U": ") + message;
  for (const PlacedNote& note : record.explanation.related) {
    text += U"; " + printable(shownPlace(note.place, record.file.path) + ": " + note.text);
  }
  return templateText(text);
}

TemplateData warningData(const LoadRecord& record) {
  return textOrNothing(printable(record.warning.value_or("")));
}

/// What is missing of the file, and why.
TemplateData leftOutData(const LoadRecord& record) {
  if (!record.leftOut) return {false};
  const LeftOutGroups& leftOut = *record.leftOut;
  return templateText(
      printable(leftOut.what + ": " + shownPlace(leftOut.failure.place, record.file.path) + ": " + leftOut.why));
}

TemplateData loadsData(const std::vector<LoadRecord>& records) {
  TemplateList loads;
  for (const LoadRecord& record : records) {
    TemplateData load;
    load["kind"] = TemplateData(std::string(fileKindName(record.file.kind)));
    load["path"] = templateText(printable(record.file.path));
    load["failure"] = failureData(record);
    load["warning"] = warningData(record);
    load["leftOut"] = leftOutData(record);
    loads.push_back(std::move(load));
  }
  return {loads};
}

/// A number that is not worth telling when it is 0.
TemplateData numberOrNothing(std::ptrdiff_t number) {
  return number == 0 ? TemplateData(false) : templateNumber(static_cast<std::size_t>(number));
}

TemplateData countsData(const DictionaryIndex& index) {
  const auto& sets = index.sets();
  const auto& elements = index.elements();
  const auto isUnused = [&](const MetaElement* element) { return index.usesOf(*element).empty(); };
  const auto isAbstractSet = [](const MetaMetadataSet* set) { return isAbstract(*set); };
  TemplateData counts;
  counts["sets"] = templateNumber(sets.size());
  counts["abstractSets"] = numberOrNothing(std::count_if(sets.begin(), sets.end(), isAbstractSet));
  counts["elements"] = templateNumber(elements.size());
  counts["unusedElements"] = numberOrNothing(std::count_if(elements.begin(), elements.end(), isUnused));
  const std::size_t tags = index.dictionary().localTags().size();
  counts["tags"] = templateNumber(tags);
  counts["setsNoun"] = TemplateData(sets.size() == 1 ? "set" : "sets");
  counts["elementsNoun"] = TemplateData(elements.size() == 1 ? "element" : "elements");
  counts["tagsNoun"] = TemplateData(tags == 1 ? "local tag" : "local tags");
  return counts;
}

/// The tree as a flat list: the template nests it by what each entry opens before itself and closes after itself.
TemplateData treeData(const std::vector<SetTreeEntry>& tree) {
  TemplateList entries;
  for (std::size_t i = 0; i < tree.size(); ++i) {
    const std::size_t level = std::min(tree[i].depth, deepestLevel);
    const std::size_t next = i + 1 < tree.size() ? std::min(tree[i + 1].depth, deepestLevel) : 0;
    TemplateData entry = linkTo(*tree[i].set);
    entry["opensLevel"] = TemplateData(next > level);
    entry["isLeaf"] = TemplateData(next <= level);
    entry["closedLevels"] = TemplateData(TemplateList(next < level ? level - next : 0, TemplateData(true)));
    entries.push_back(std::move(entry));
  }
  return itemsOrNothing(entries);
}

TemplateData setsData(const DictionaryIndex& index, const std::vector<SetTreeEntry>& tree) {
  TemplateList sets;
  AttributeSources sources(index);
  for (const SetTreeEntry& entry : tree) sets.push_back(setData(index, sources, *entry.set));
  return {sets};
}

/// Elements are found by their name, so that is the order.
TemplateData elementsData(const DictionaryIndex& index) {
  using NamedElement = std::pair<std::u32string, const MetaElement*>;
  std::vector<NamedElement> elements;
  for (const MetaElement* element : index.elements()) elements.emplace_back(lowerCase(nameText(*element)), element);
  std::stable_sort(elements.begin(), elements.end(),
                   [](const NamedElement& a, const NamedElement& b) { return a.first < b.first; });
  TemplateList data;
  for (const auto& [name, element] : elements) data.push_back(elementData(index, *element));
  return {data};
}

/// What elements can be filtered by, each with how many elements that leaves.
TemplateData choicesData(const DictionaryIndex& index, std::u32string (*property)(const MetaElement&)) {
  std::map<std::u32string, std::size_t> counts;
  for (const MetaElement* element : index.elements()) ++counts[property(*element)];
  TemplateList choices;
  for (const auto& [value, count] : counts) {
    TemplateData choice;
    choice["choice"] = templateText(value);
    choice["choiceCount"] = templateNumber(count);
    choices.push_back(std::move(choice));
  }
  return {choices};
}

TemplateData tagsData(const MetaMetadata::Dictionary& dictionary) {
  TemplateList tags;
  for (const auto& [tag, label] : dictionary.localTags()) {
    const MetaElement* element = dictionary.findMetaElement(label);
    TemplateData item;
    item["tag"] = templateText(printable(tag.toString(textForm)));
    item["label"] = templateText(printable(label.toString(textForm)));
    item["element"] = element == nullptr ? TemplateData(false) : linkTo(*element);
    tags.push_back(std::move(item));
  }
  return itemsOrNothing(tags);
}

/// The templates that others include, and what is not filled in but taken as it is.
void addAssets(TemplateData& data) {
  const std::pair<const char*, const char*> partials[] = {
      {"overviewPart", Assets::overview}, {"treePart", Assets::tree},
      {"setPart", Assets::set},           {"attributesPart", Assets::attributes},
      {"elementPart", Assets::element},   {"filtersPart", Assets::filters},
      {"tagsPart", Assets::tags},         {"linkPart", Assets::link},
      {"linksPart", Assets::links},       {"typePart", Assets::type}};
  for (const auto& [name, text] : partials) data[name] = TemplateData(text);
  data["style"] = TemplateData(std::string(Assets::layoutStyle) + Assets::contentStyle + Assets::printStyle);
  data["themeScript"] = TemplateData(Assets::themeScript);
  data["scripts"] = TemplateData(std::string(Assets::searchScript) + Assets::filtersScript + Assets::treeScript);
}

}  // namespace

std::string reportPage(const LoadOutcome& outcome, const Templates::WideString& title) {
  const DictionaryIndex index(outcome.dictionary);
  const std::vector<SetTreeEntry> tree = setTree(outcome.dictionary);
  TemplateData data;
  addAssets(data);
  data["title"] = templateText(printable(title));
  data["version"] = TemplateData(TESSELMXF_VERSION);
  data["loads"] = loadsData(outcome.loads);
  data["counts"] = countsData(index);
  data["tree"] = treeData(tree);
  data["sets"] = setsData(index, tree);
  data["dataTypes"] = choicesData(index, dataTypeText);
  data["kinds"] = choicesData(index, elementKind);
  data["elements"] = elementsData(index);
  data["localTags"] = tagsData(outcome.dictionary);

  kainjow::mustache::mustache page{Assets::page};
  std::string html = page.render(data);
  if (!page.is_valid()) throw std::logic_error("The report's template is faulty: " + page.error_message());
  return html;
}

}  // namespace MXF::Tessel::Tool
