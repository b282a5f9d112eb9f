#include "DocumentBudget.h"

#include <xercesc/util/XMLString.hpp>

#include <cstdint>

namespace MXF::Tessel::XMLUtils {

namespace {

/// FNV-1a.
std::uint32_t hashOn(std::uint32_t hash, const XMLCh* text) {
  constexpr std::uint32_t prime = 16777619;
  if (text == nullptr) return hash;
  for (; *text != u'\0'; ++text) hash = (hash ^ *text) * prime;
  return hash;
}

}  // namespace

const Limit* DocumentBudget::useName(const XMLCh* prefix, const XMLCh* name) {
  constexpr std::uint32_t start = 2166136261;
  const std::uint32_t hash = hashOn(hashOn(start, prefix), name);
  auto known = nameHashes_[(hash ^ (hash >> 16U)) % nameHashes_.size()];
  if (known) return nullptr;
  known = true;
  return take(names_, 1, Limits::names);
}

const Limit* DocumentBudget::declarePrefix() {
  const Limit* exceeded = take(prefixesOfElement_, 1, Limits::prefixesOfElement);
  return exceeded != nullptr ? exceeded : take(prefixes_, 1, Limits::prefixes);
}

const Limit* DocumentBudget::haveAttributes(std::size_t count) {
  prefixesOfElement_ = 0;
  return count > Limits::attributes.count ? &Limits::attributes : nullptr;
}

const Limit* DocumentBudget::declareEntity(const XMLCh* value, bool isParameterEntity) {
  using xercesc::XMLString;
  if (value != nullptr && XMLString::stringLen(value) > Limits::entityLength.count) return &Limits::entityLength;
  const bool isNested = isParameterEntity && value != nullptr && XMLString::indexOf(value, u'%') >= 0;
  return isNested ? &Limits::parameterEntityNesting : declare();
}

}  // namespace MXF::Tessel::XMLUtils
