#pragma once

#include <xercesc/dom/DOMElement.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

/// What queries read of a declaration, read once: the declarations of a base type are asked again by every type that is
/// derived from it. The same declaration is read anew when queries see another namespace for the prefix xs, the only one
/// that they have.
template <class Reading>
class Readings {
 public:
  /// @param schemaNamespace  that namespace, as the loader's data have it; null for a query without prefixes.
  /// @param read  gives the reading when there is none yet; what it throws passes through, and nothing is kept.
  template <class Read>
  const Reading& of(const xercesc::DOMElement& declaration, const std::u16string* schemaNamespace, Read read) {
    const Key key{&declaration, schemaNamespace};
    const auto known = readings_.find(key);
    return known != readings_.end() ? known->second : readings_.emplace(key, read()).first->second;
  }

 private:
  using Key = std::pair<const xercesc::DOMElement*, const std::u16string*>;
  struct Hash {
    std::size_t operator()(const Key& key) const {
      const std::hash<const void*> hash;
      return hash(key.first) ^ (hash(key.second) << 1U);
    }
  };
  std::unordered_map<Key, Reading, Hash> readings_;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
