#pragma once

#include "DocumentLimits.h"

#include <xercesc/util/XercesDefs.hpp>

#include <bitset>
#include <cstddef>

namespace MXF::Tessel::XMLUtils {

/// Counts what one document has used of its limits while it is parsed. An operation that counts gives the limit that
/// is exceeded now, or null.
class DocumentBudget {
 public:
  const Limit* enterElement() { return take(nesting_, 1, Limits::nesting); }
  void leaveElement() { --nesting_; }
  const Limit* useName(const XMLCh* prefix, const XMLCh* name);
  const Limit* declarePrefix();
  /// The attributes of an element, given when the element's own namespace declarations have all been counted.
  const Limit* haveAttributes(std::size_t count);
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

  std::size_t nesting_ = 0;
  std::size_t prefixesOfElement_ = 0;
  std::size_t prefixes_ = 0;
  std::size_t names_ = 0;
  std::size_t declaredAttributes_ = 0;
  std::size_t defaultAttributes_ = 0;
  std::size_t defaultValues_ = 0;
  bool isInDoctype_ = false;
  std::size_t doctypeSize_ = 0;
  std::size_t doctypeDeclarations_ = 0;
  std::size_t doctypeText_ = 0;
  /// The names met, by their hash: those that share one count once, which matters little so far below its size.
  std::bitset<std::size_t{1} << 16U> nameHashes_;
};

}  // namespace MXF::Tessel::XMLUtils
