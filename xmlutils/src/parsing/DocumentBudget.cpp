#include "DocumentBudget.h"

#include <xercesc/util/XMLString.hpp>

namespace MXF::Tessel::XMLUtils {

namespace {

std::u16string_view viewOf(const XMLCh* text) {
  return text == nullptr ? std::u16string_view{} : std::u16string_view{text};
}

std::size_t slotOf(std::u16string_view name) {
  return name.empty() ? 0 : name.size() + std::size_t{5} * name.front() + std::size_t{11} * name.back();
}

}  // namespace

bool DocumentBudget::ByLength::operator()(const NameView& a, const NameView& b) const {
  if (a.second.size() != b.second.size()) return a.second.size() < b.second.size();
  return a < b;
}

const Limit* DocumentBudget::enterElement() {
  if (nesting_ == Limits::nesting.count) return &Limits::nesting;
  prefixesOfLevels_[nesting_++] = prefixesOfElement_;
  prefixesInScope_ += prefixesOfElement_;
  prefixesOfElement_ = 0;
  return nullptr;
}

const Limit* DocumentBudget::useName(const XMLCh* prefix, const XMLCh* name) {
  const NameView used{viewOf(prefix), viewOf(name)};
  const Name*& recent = recentNames_[slotOf(used.second) % recentNames_.size()];
  if (recent != nullptr && recent->second == used.second && recent->first == used.first) return nullptr;
  const auto known = names_.find(used);
  recent = known != names_.end() ? &*known : &*names_.emplace(used).first;
  return names_.size() > Limits::names.count ? &Limits::names : nullptr;
}

const Limit* DocumentBudget::declarePrefix(std::size_t length, std::size_t namespaces) {
  if (length > Limits::namespaceLength.count) return &Limits::namespaceLength;
  const Limit* exceeded = take(prefixesOfElement_, 1, Limits::prefixesOfElement);
  if (exceeded == nullptr) exceeded = take(prefixes_, 1, Limits::prefixes);
  return exceeded != nullptr ? exceeded : compareNamespaces(length * (namespaces + 1));
}

const Limit* DocumentBudget::resolvePrefix(std::size_t length) {
  const Limit* exceeded = take(totals_.prefixComparisons, prefixesInScope_, Limits::prefixComparisons);
  return exceeded != nullptr ? exceeded : compareNamespaces(length);
}

const Limit* DocumentBudget::declareEntity(const XMLCh* value, bool isParameterEntity) {
  using xercesc::XMLString;
  hasEntities_ = true;
  if (value != nullptr && XMLString::stringLen(value) > Limits::entityLength.count) return &Limits::entityLength;
  const bool isNested = isParameterEntity && value != nullptr && XMLString::indexOf(value, u'%') >= 0;
  return isNested ? &Limits::parameterEntityNesting : declare();
}

}  // namespace MXF::Tessel::XMLUtils
