#pragma once

#include "analysis/DictionaryIndex.h"
#include "loading/DeclaringTypes.h"

#include <optional>
#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// Where an attribute of a set comes from.
struct AttributeSource {
  const DictionaryIndex::Set* set;  ///< The set itself, or the farthest base that is loaded and has it.
  /// The complex type that declares it, when that is of a base which is not loaded, or of which there is no set at all.
  std::optional<ExtendedType> missingType;

  [[nodiscard]] bool isInherited(const DictionaryIndex::Set& by) const { return set != &by || missingType; }
  bool operator==(const AttributeSource& other) const { return set == other.set && missingType == other.missingType; }
};

/// Why a base is no set of the dictionary, as it is put behind its name.
inline std::string whyMissing(const ExtendedType& type) {
  return type.hasGroup ? " (not loaded)" : " (a type without a group)";
}

/// Tells for each attribute where it comes from, also when it is from a base that is not loaded.
class AttributeSources {
 public:
  /// @param index  outlives this.
  explicit AttributeSources(const DictionaryIndex& index) : index_(index) {}

  /// @param attribute  position among the set's attributes.
  AttributeSource of(const DictionaryIndex::Set& set, std::size_t attribute);

  /// Of all attributes of the set, in their order: those that are inherited come first.
  std::vector<AttributeSource> of(const DictionaryIndex::Set& set);

  /// The complex types of bases that are not loaded from which the set has attributes, the nearest first.
  std::vector<ExtendedType> missingTypes(const DictionaryIndex::Set& set);

 private:
  const DictionaryIndex& index_;
  DeclaringTypes types_;
};

}  // namespace MXF::Tessel::Tool
