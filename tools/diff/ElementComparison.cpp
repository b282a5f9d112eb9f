#include "diff/ComparisonSteps.h"
#include "diff/MergedMaps.h"

#include <Types/Identifiers.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <iterator>

namespace MXF::Tessel::Tool {

namespace {

std::string dumpedTypeName(int type) {
  const auto name =
      Utils::wstringToString(Types::Identifiers::identifierToString(static_cast<Types::Identifiers::Identifier>(type)));
  return {name.begin(), name.end()};
}

/// "UInt8", "Batch of UInt8".
std::string dumpedTypeText(const DumpedElement& element) {
  return dumpedTypeName(element.dataType) + (element.dataSubType ? " of " + dumpedTypeName(*element.dataSubType) : "");
}

void compareTypes(Comparison& comparison, const Change& about, const DumpedElement& before,
                  const DumpedElement& after) {
  if (before.className != after.className || before.dataType != after.dataType) {
    const bool namesDiffer = dumpedTypeText(before) != dumpedTypeText(after);
    comparison.add(about, ChangeKind::DataTypeChanged, namesDiffer ? dumpedTypeText(before) : before.className,
                   namesDiffer ? dumpedTypeText(after) : after.className);
  } else if (before.dataSubType != after.dataSubType) {
    comparison.add(about, ChangeKind::ItemTypeChanged, dumpedTypeText(before), dumpedTypeText(after));
  }
}

/// What is in the first set and not in the second.
std::vector<std::string> missing(const std::set<std::string>& first, const std::set<std::string>& second) {
  std::vector<std::string> result;
  std::set_difference(first.begin(), first.end(), second.begin(), second.end(), std::back_inserter(result));
  return result;
}

void compareAllowedSets(Comparison& comparison, const Change& about, const DumpedElement& before,
                        const DumpedElement& after) {
  for (const std::string& key : missing(before.allowedSets, after.allowedSets)) {
    comparison.add(about, ChangeKind::AllowedSetRemoved, setReference(comparison, key));
  }
  for (const std::string& key : missing(after.allowedSets, before.allowedSets)) {
    comparison.add(about, ChangeKind::AllowedSetAdded, nullptr, setReference(comparison, key));
  }
}

/// The sets that the element names and no schema declares, as "[name,namespace URI]" each.
std::set<std::string> undeclaredSets(const DumpedElement& element) {
  std::set<std::string> names;
  const std::string* property = findProperty(element.properties, "UnresolvedMetaMetadataSetsRefs");
  std::string_view rest = property == nullptr ? std::string_view() : *property;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find("];"), rest.size() - 1);
    names.emplace(rest.substr(0, end + 1));
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
  return names;
}

/// An item of the above as a value of a change; as it is when it is of no known form.
Json undeclaredSet(const std::string& item) {
  const std::size_t comma = item.find(',');
  if (comma == std::string::npos || item.front() != '[' || item.back() != ']') return item;
  return {{"name", item.substr(1, comma - 1)}, {"namespace", item.substr(comma + 1, item.size() - comma - 2)}};
}

void compareUndeclaredSets(Comparison& comparison, const Change& about, const DumpedElement& before,
                           const DumpedElement& after) {
  const std::set<std::string> old = undeclaredSets(before);
  const std::set<std::string> now = undeclaredSets(after);
  for (const std::string& item : missing(old, now)) {
    comparison.add(about, ChangeKind::UndeclaredSetRemoved, undeclaredSet(item));
  }
  for (const std::string& item : missing(now, old)) {
    comparison.add(about, ChangeKind::UndeclaredSetAdded, nullptr, undeclaredSet(item));
  }
}

void compareElement(Comparison& comparison, const DumpedElement& before, const DumpedElement& after) {
  const Change about = aboutElement(comparison, before.label);
  compareVersions(comparison, about);
  compareTypes(comparison, about, before, after);
  compareAllowedSets(comparison, about, before, after);
  compareUndeclaredSets(comparison, about, before, after);
  compareProperties(comparison, about, before.properties, after.properties);
}

}  // namespace

void compareElements(Comparison& comparison) {
  forEachInEither(
      comparison.before.elements, comparison.after.elements,
      [&](const std::string& label, const DumpedElement* before, const DumpedElement* after) {
        if (after == nullptr) {
          comparison.add(aboutElement(comparison, label), ChangeKind::ElementRemoved, dumpedTypeText(*before));
        } else if (before == nullptr) {
          comparison.add(aboutElement(comparison, label), ChangeKind::ElementAdded, nullptr, dumpedTypeText(*after));
        } else {
          compareElement(comparison, *before, *after);
        }
      });
}

}  // namespace MXF::Tessel::Tool
