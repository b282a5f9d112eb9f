#pragma once

#include "analysis/DictionaryIndex.h"
#include "check/DeclarationScan.h"
#include "check/Finding.h"
#include "loading/SchemaLoading.h"

#include <map>
#include <string>

namespace MXF::Tessel::Tool {

/// What is examined: all that was loaded, and from what. Lists are in the order of declaration: files as they were
/// loaded, then others, such as imports; in a file from its beginning to its end.
class Subject {
 public:
  /// @param outcome  outlives the subject and does not change meanwhile; so does its dictionary's index.
  Subject(const LoadOutcome& outcome, const DictionaryIndex& index);

  const LoadOutcome& outcome() const { return outcome_; }
  const DictionaryIndex& index() const { return index_; }
  const DictionaryIndex::Elements& elements() const { return elements_; }
  const DictionaryIndex::Sets& sets() const { return sets_; }

  /// An attribute that a set has of its own.
  struct OwnAttribute {
    const DictionaryIndex::Set* set;
    const MetaMetadata::MetaAttribute* attribute;
  };
  /// One for each declaration, also where several sets have the attribute because their base is not loaded.
  const std::vector<OwnAttribute>& ownAttributes() const { return ownAttributes_; }

  /// What is in the given schemas and not in the dictionary, by the path of the schema.
  const std::map<Templates::WideString, DeclarationScan>& scans() const { return scans_; }

  /// Whether any file failed to load, so that something may be missing for that reason alone.
  [[nodiscard]] bool isIncomplete() const;
  /// Whether one place comes before another in the order of declaration.
  [[nodiscard]] bool comesBefore(const Place& a, const Place& b) const;

 private:
  void collectOwnAttributes();

  const LoadOutcome& outcome_;
  const DictionaryIndex& index_;
  std::map<Templates::WideString, std::size_t> ranks_;
  DictionaryIndex::Elements elements_;
  DictionaryIndex::Sets sets_;
  std::vector<OwnAttribute> ownAttributes_;
  std::map<Templates::WideString, DeclarationScan> scans_;
};

/// The registry name in quotation marks.
std::string quotedName(const MetaMetadata::PropertyMap& map);

/// Text form of a label, key or local tag.
template <class Identifier>
std::string identifierText(const Identifier& identifier);

/// Calls the action with each thing of which the key is that of one before it, and with the first such one.
template <class Things, class KeyOf, class Action>
void forEachClash(const Things& things, const KeyOf& keyOf, const Action& action) {
  std::map<decltype(keyOf(*things.begin())), typename Things::value_type> firsts;
  for (const auto& thing : things) {
    const auto [first, isFirst] = firsts.emplace(keyOf(thing), thing);
    if (!isFirst) action(first->second, thing);
  }
}

}  // namespace MXF::Tessel::Tool
