#pragma once

#include <Utils/Limit.h>

#include <algorithm>
#include <cstddef>

/// What one load may ask for. Small schemas can ask for much: types and sets repeat what they inherit, declarations
/// repeat the namespace, and imports can be written so that a few files are read again and again. Every limit is
/// hundreds of times what the schemas of the standard need.
namespace MXF::Tessel::MetaMetadata::Loading {

namespace Limits {

/// Each set has all attributes of its base types, and each attribute takes about two kilobytes.
constexpr Utils::Limit attributes{500'000, L"attributes of sets in a load"};

/// Chains of base types are walked anew for every set, and a type is looked for in one import after the other.
constexpr Utils::Limit typeLookups{2'000'000, L"look-ups of types in a load"};

/// Namespaces, prefixes and values that elements, sets and attributes have in common, of which each keeps its own copy,
/// and names and paths that are looked up again and again.
constexpr Utils::Limit repeatedText{50'000'000, L"characters of repeated texts in a load"};

/// Each item of a value that is a list takes some hundred bytes, and each attribute has its own.
constexpr Utils::Limit items{1'000'000, L"items of values in a load"};

/// A path is read once, but a file has many paths. Documents stay until the loader is destroyed, and the smallest takes
/// some sixteen kilobytes of memory, as two kilobytes of declarations do: that is what each counts at least.
constexpr Utils::Limit importedBytes{std::size_t{32} << 20U, L"bytes of imported files in a load"};
constexpr std::size_t smallestImport = std::size_t{2} << 10U;

}  // namespace Limits

/// Counts what a load has used of its limits.
class LoadBudget {
 public:
  // Each throws Exceptions::InvalidValue when its limit is exceeded.
  void takeAttribute() { take(attributes_, 1, Limits::attributes); }
  void takeTypeLookups(std::size_t count) { take(typeLookups_, count, Limits::typeLookups); }
  void takeRepeatedText(std::size_t length) { take(repeatedText_, length, Limits::repeatedText); }
  void takeItems(std::size_t count) { take(items_, count, Limits::items); }
  void takeImport(std::size_t bytes) {
    take(importedBytes_, std::max(bytes, Limits::smallestImport), Limits::importedBytes);
  }

 private:
  static void take(std::size_t& used, std::size_t amount, const Utils::Limit& limit);

  std::size_t attributes_ = 0;
  std::size_t typeLookups_ = 0;
  std::size_t repeatedText_ = 0;
  std::size_t items_ = 0;
  std::size_t importedBytes_ = 0;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
