#include "check/Subject.h"

#include "loading/ImportedSchemas.h"
#include "text/ElementText.h"
#include "text/Unicode.h"

#include <Types/LocalTag.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace MXF::Tessel::Tool {

Subject::Subject(const LoadOutcome& outcome, const DictionaryIndex& index) : outcome_(outcome), index_(index) {
  for (const LoadRecord& load : outcome.loads) {
    const Templates::WideString path = shownPath(Utils::stringToWstring(load.file.path.c_str()));
    const bool isNew = ranks_.emplace(path, ranks_.size()).second;
    if (isNew && load.file.kind != FileKind::Multiplex) schemas_.push_back(path);
  }
}

/// Places are made once for each thing and not for each comparison.
template <class List>
List Subject::inOrder(const List& list) const {
  using Entry = std::pair<Place, typename List::value_type>;
  std::vector<Entry> entries;
  entries.reserve(list.size());
  for (const auto* thing : list) entries.emplace_back(placeAt(thing->origin()), thing);
  std::stable_sort(entries.begin(), entries.end(),
                   [&](const Entry& a, const Entry& b) { return comesBefore(a.first, b.first); });
  List sorted;
  sorted.reserve(entries.size());
  for (const Entry& entry : entries) sorted.push_back(entry.second);
  return sorted;
}

const DictionaryIndex::Elements& Subject::elements() const {
  if (!elements_) elements_ = inOrder(index_.elements());
  return *elements_;
}

const DictionaryIndex::Sets& Subject::sets() const {
  if (!sets_) sets_ = inOrder(index_.sets());
  return *sets_;
}

const Subject::OwnAttributes& Subject::ownAttributes() const {
  if (!ownAttributes_) ownAttributes_ = collectOwnAttributes();
  return *ownAttributes_;
}

Subject::OwnAttributes Subject::collectOwnAttributes() const {
  OwnAttributes own;
  std::set<std::tuple<Templates::WideString, std::uint32_t, std::uint32_t>> seen;
  for (const DictionaryIndex::Set* set : sets()) {
    const auto& attributes = set->metaAttributes();
    for (std::size_t i = index_.inheritedAttributes(*set); i < attributes.size(); ++i) {
      const Place place = placeAt(attributes[i]->origin());
      if (seen.emplace(place.path, place.line, place.column).second) own.push_back({set, &*attributes[i]});
    }
  }
  return own;
}

const DeclarationScan& Subject::scanOf(const Templates::WideString& path) const {
  const auto known = scans_.find(path);
  if (known != scans_.end()) return known->second;
  return scans_.emplace(path, scanDeclarations(path, annotationsOf(outcome_.targetNamespace))).first->second;
}

std::vector<Subject::ReadSchema> Subject::schemasWithImports() const {
  std::vector<ReadSchema> all;
  std::set<Templates::WideString> met;
  for (const Templates::WideString& path : schemas_) {
    all.push_back({path, true});
    met.insert(path);
  }
  for (const Templates::WideString& given : schemas_) {
    std::vector<Templates::WideString> open{given};
    while (!open.empty()) {
      const Templates::WideString path = open.back();
      open.pop_back();
      for (const DeclarationScan::Import& import : scanOf(path).imports) {
        const Templates::WideString imported = importedPath(given, import.location);
        if (!met.insert(imported).second) continue;
        all.push_back({imported, false});
        open.push_back(imported);
      }
    }
  }
  return all;
}

bool Subject::isIncomplete() const {
  const auto& loads = outcome_.loads;
  return std::any_of(loads.begin(), loads.end(), [](const LoadRecord& load) { return load.failure.has_value(); });
}

std::size_t Subject::rankOf(const Templates::WideString& path) const {
  const auto rank = ranks_.find(path);
  return rank == ranks_.end() ? ranks_.size() : rank->second;
}

bool Subject::comesBefore(const Place& a, const Place& b) const {
  if (a.path == b.path) return std::tie(a.line, a.column) < std::tie(b.line, b.column);
  const std::size_t rankOfA = rankOf(a.path);
  const std::size_t rankOfB = rankOf(b.path);
  return std::tie(rankOfA, a.path) < std::tie(rankOfB, b.path);
}

std::string quotedName(const MetaMetadata::PropertyMap& map) {
  return '"' + encode(nameText(map)) + '"';
}

}  // namespace MXF::Tessel::Tool
