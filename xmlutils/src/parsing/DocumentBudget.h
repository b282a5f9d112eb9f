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
  /// What documents that lead to each other have used together.
  struct Totals {
    std::size_t nodes = 0;
    std::size_t prefixComparisons = 0;
    std::size_t namespaceCharacters = 0;
    std::size_t identifiers = 0;
    std::size_t declaredAttributes = 0;
    std::size_t defaultAttributes = 0;
    std::size_t defaultValues = 0;
    std::size_t doctypeDeclarations = 0;
    std::size_t doctypeText = 0;
    std::size_t expandedText = 0;
  };

  DocumentBudget() = default;
  explicit DocumentBudget(const Totals& totals) : totals_(totals) {}
  const Totals& totals() const { return totals_; }

  const Limit* addNodes(std::size_t count) { return take(totals_.nodes, count, Limits::nodes); }
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
  /// like one more; in a document type there are only these.
  const Limit* makeRoom(std::size_t count) const {
    constexpr const Limit& references = Limits::parameterEntityExpansions;
    if (isInDoctype_) return count > references.count ? &references : nullptr;
    return count > Limits::attributes.count + Limits::entityExpansions.count ? &Limits::attributes : nullptr;
  }
  const Limit* declareIdentifier() { return take(totals_.identifiers, 1, Limits::identifiers); }
  const Limit* compareWithDeclared(std::size_t attributes) {
    return take(totals_.declaredAttributes, attributes, Limits::declaredAttributes);
  }
  const Limit* makeDefaults(std::size_t attributes) {
    return take(totals_.defaultAttributes, attributes, Limits::defaultAttributes);
  }
  const Limit* repeatDefaultValue(std::size_t length) {
    return take(totals_.defaultValues, length, Limits::defaultValues);
  }

  void beginDoctype() { isInDoctype_ = true; }
  void endDoctype() { isInDoctype_ = false; }
  const Limit* read(std::size_t bytes) {
    return isInDoctype_ ? take(doctypeSize_, bytes, Limits::doctypeSize) : nullptr;
  }
  const Limit* declare() { return take(totals_.doctypeDeclarations, 1, Limits::doctypeDeclarations); }
  const Limit* declareEntity(const XMLCh* value, bool isParameterEntity);
  bool hasEntities() const { return hasEntities_; }
  /// Text that entities add, or may have added.
  const Limit* expandText(std::size_t length) { return take(totals_.expandedText, length, Limits::expandedText); }
  const Limit* haveDoctypeText(std::size_t length) { return take(totals_.doctypeText, length, Limits::doctypeText); }

 private:
  static const Limit* take(std::size_t& used, std::size_t amount, const Limit& limit) {
    used += amount;
    return used > limit.count ? &limit : nullptr;
  }

  const Limit* compareNamespaces(std::size_t length) {
    const Limit* exceeded = take(namespaceCharacters_, length, Limits::namespaceCharacters);
    return exceeded != nullptr ? exceeded
                               : take(totals_.namespaceCharacters, length, Limits::namespaceCharactersTogether);
  }

  /// A prefix and a name. The order is the quickest there is.
  using Name = std::pair<std::u16string, std::u16string>;
  using NameView = std::pair<std::u16string_view, std::u16string_view>;
  struct ByLength {
    using is_transparent = void;
    bool operator()(const NameView& a, const NameView& b) const;
  };

  Totals totals_;
  std::size_t nesting_ = 0;
  std::size_t prefixesOfElement_ = 0;
  std::array<std::size_t, Limits::nesting.count + 1> prefixesOfLevels_{};
  std::size_t prefixesInScope_ = 0;
  std::size_t namespaceCharacters_ = 0;
  std::size_t prefixes_ = 0;
  std::set<Name, ByLength> names_;
  std::array<const Name*, 64> recentNames_{};  ///< Of names_, by what tells most names of schemas apart.
  bool isInDoctype_ = false;
  bool hasEntities_ = false;
  std::size_t doctypeSize_ = 0;
};

}  // namespace MXF::Tessel::XMLUtils
