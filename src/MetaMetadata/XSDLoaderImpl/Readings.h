#pragma once

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

/// What queries read of a declaration, read once: the declarations of a base type are asked again by every type that is
/// derived from it. The same declaration under another resolver is read anew, since its prefixes may mean something
/// else.
template <class Reading>
class Readings {
 public:
  /// @param read  gives the reading when there is none yet; what it throws passes through, and nothing is kept.
  template <class Read>
  const Reading& of(const xercesc::DOMElement& declaration, const xercesc::DOMXPathNSResolver* resolver, Read read) {
    const Key key{&declaration, resolver};
    const auto known = readings_.find(key);
    return known != readings_.end() ? known->second : readings_.emplace(key, read()).first->second;
  }

 private:
  using Key = std::pair<const xercesc::DOMElement*, const xercesc::DOMXPathNSResolver*>;
  struct Hash {
    std::size_t operator()(const Key& key) const {
      const std::hash<const void*> hash;
      return hash(key.first) ^ (hash(key.second) << 1U);
    }
  };
  std::unordered_map<Key, Reading, Hash> readings_;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
