#pragma once

#include "analysis/DictionaryIndex.h"
#include "check/DeclarationScan.h"
#include "check/Finding.h"
#include "loading/SchemaLoading.h"
#include "text/IdentifierForm.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// What is examined: all that was loaded, and from what. Lists are in the order of declaration: files as they were
/// loaded, then others, such as imports; in a file from its beginning to its end. What only some rules look at is made
/// when it is first asked for. Not for use by several threads.
class Subject {
 public:
  /// @param outcome  outlives the subject and does not change meanwhile; so does its dictionary's index.
  Subject(const LoadOutcome& outcome, const DictionaryIndex& index);

  const LoadOutcome& outcome() const { return outcome_; }
  const DictionaryIndex& index() const { return index_; }
  const DictionaryIndex::Elements& elements() const;
  const DictionaryIndex::Sets& sets() const;

  /// An attribute that a set has of its own.
  struct OwnAttribute {
    const DictionaryIndex::Set* set;
    const MetaMetadata::MetaAttribute* attribute;
  };
  using OwnAttributes = std::vector<OwnAttribute>;
  /// One for each declaration, also where several sets have the attribute because their base is not loaded.
  const OwnAttributes& ownAttributes() const;

  /// The paths of the given schemas in the order in which they were loaded, each once; without the multiplex schema.
  const std::vector<Templates::WideString>& schemas() const { return schemas_; }
  /// What is in a schema and not in the dictionary.
  /// @param path  of a given schema, or of an imported one.
  const DeclarationScan& scanOf(const Templates::WideString& path) const;

  /// A schema that is given, or imported by a given one or by what that imports.
  struct ReadSchema {
    Templates::WideString path;
    bool isGiven;
  };
  /// The given schemas, then those that they import from anywhere, each once.
  std::vector<ReadSchema> schemasWithImports() const;

  /// Whether any file failed to load, so that something may be missing for that reason alone.
  [[nodiscard]] bool isIncomplete() const;
  /// Whether one place comes before another in the order of declaration.
  [[nodiscard]] bool comesBefore(const Place& a, const Place& b) const;

 private:
  /// Rank of a path in the order of declaration.
  std::size_t rankOf(const Templates::WideString& path) const;
  template <class List>
  List inOrder(const List& list) const;
  OwnAttributes collectOwnAttributes() const;

  const LoadOutcome& outcome_;
  const DictionaryIndex& index_;
  std::map<Templates::WideString, std::size_t> ranks_;
  std::vector<Templates::WideString> schemas_;
  mutable std::optional<DictionaryIndex::Elements> elements_;
  mutable std::optional<DictionaryIndex::Sets> sets_;
  mutable std::optional<OwnAttributes> ownAttributes_;
  mutable std::map<Templates::WideString, DeclarationScan> scans_;
};

/// The registry name in quotation marks.
std::string quotedName(const MetaMetadata::PropertyMap& map);

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
