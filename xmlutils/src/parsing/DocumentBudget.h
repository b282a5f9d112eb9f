#pragma once

#include "DocumentLimits.h"

#include <xercesc/util/XercesDefs.hpp>

#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace MXF::Tessel::XMLUtils {

/// Counts what one document has used of its limits while it is parsed. An operation that counts gives the limit that
/// is exceeded now, or null.
class DocumentBudget {
 public:
  const Limit* addNodes(std::size_t count) { return take(nodes_, count, Limits::nodes); }
  /// Called when the element's own namespace declarations have all been counted.
  const Limit* enterElement();
  void leaveElement() { prefixesInScope_ -= prefixesOfLevels_[--nesting_]; }
  const Limit* useName(const XMLCh* prefix, const XMLCh* name);
  /// @param length      of the namespace's name.
  /// @param namespaces  different ones that the parser has met so far.
  const Limit* declarePrefix(std::size_t length, std::size_t namespaces);
  /// What a prefix stands for is looked up. @param length  of the name of the namespace that it stands for.
  const Limit* resolvePrefix(std::size_t length);
  static const Limit* haveAttributes(std::size_t count) {
    return count > Limits::attributes.count ? &Limits::attributes : nullptr;
  }
  /// Attributes that the parser has made room for before it tells of their element. Each expansion of an entity may look
  /// like one more.
  static const Limit* makeRoomForAttributes(std::size_t count) {
    return count > Limits::attributes.count + Limits::entityExpansions.count ? &Limits::attributes : nullptr;
  }
  const Limit* declareIdentifier() { return take(identifiers_, 1, Limits::identifiers); }
  const Limit* compareWithDeclared(std::size_t attributes) {
    return take(declaredAttributes_, attributes, Limits::declaredAttributes);
  }
  const Limit* makeDefaults(std::size_t attributes) {
    return take(defaultAttributes_, attributes, Limits::defaultAttributes);
  }
  const Limit* repeatDefaultValue(std::size_t length) { return take(defaultValues_, length, Limits::defaultValues); }

  void beginDoctype() { isInDoctype_ = true; }
  void endDoctype() { isInDoctype_ = false; }
  const Limit* read(std::size_t bytes) {
    return isInDoctype_ ? take(doctypeSize_, bytes, Limits::doctypeSize) : nullptr;
  }
  const Limit* declare() { return take(doctypeDeclarations_, 1, Limits::doctypeDeclarations); }
  const Limit* declareEntity(const XMLCh* value, bool isParameterEntity);
  const Limit* haveDoctypeText(std::size_t length) { return take(doctypeText_, length, Limits::doctypeText); }

 private:
  static const Limit* take(std::size_t& used, std::size_t amount, const Limit& limit) {
    used += amount;
    return used > limit.count ? &limit : nullptr;
  }

  /// A prefix and a name. The order is the quickest there is.
  using Name = std::pair<std::u16string, std::u16string>;
  using NameView = std::pair<std::u16string_view, std::u16string_view>;
  struct ByLength {
    using is_transparent = void;
    bool operator()(const NameView& a, const NameView& b) const;
  };

  std::size_t nodes_ = 0;
  std::size_t nesting_ = 0;
  std::size_t prefixesOfElement_ = 0;
  std::array<std::size_t, Limits::nesting.count + 1> prefixesOfLevels_{};
  std::size_t prefixesInScope_ = 0;
  std::size_t prefixes_ = 0;
  std::size_t prefixComparisons_ = 0;
  std::size_t namespaceCharacters_ = 0;
  std::size_t identifiers_ = 0;
  std::set<Name, ByLength> names_;
  std::array<const Name*, 64> recentNames_{};  ///< Of names_, by what tells most names of schemas apart.
  std::size_t declaredAttributes_ = 0;
  std::size_t defaultAttributes_ = 0;
  std::size_t defaultValues_ = 0;
  bool isInDoctype_ = false;
  std::size_t doctypeSize_ = 0;
  std::size_t doctypeDeclarations_ = 0;
  std::size_t doctypeText_ = 0;
};

}  // namespace MXF::Tessel::XMLUtils
