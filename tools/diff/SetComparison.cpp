// Compares sets and their attributes. Entry point: compareSets(); all else is local.

#include "diff/ComparisonSteps.h"
#include "diff/MergedMaps.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

/// Whom a required status demands something of (SMPTE ST 377-1).
struct Demands {
  bool ofWriters;
  bool ofReaders;
};

Demands demandsOf(const std::string& status) {
  const bool both = status == "Req";
  return {both || status == "E/req", both || status == "D/req"};
}

bool demandsMore(const std::string& before, const std::string& after) {
  const Demands old = demandsOf(before);
  const Demands now = demandsOf(after);
  return (now.ofWriters && !old.ofWriters) || (now.ofReaders && !old.ofReaders);
}

Json textOrNull(const std::optional<std::string>& text) {
  return text ? Json(*text) : Json();
}

void compareTagsOf(Comparison& comparison, const Change& about, const DumpedAttribute& before,
                   const DumpedAttribute& after) {
  if (before.localTag == after.localTag) return;
  const ChangeKind kind = !before.localTag  ? ChangeKind::LocalTagAdded
                          : !after.localTag ? ChangeKind::LocalTagRemoved
                                            : ChangeKind::LocalTagChanged;
  comparison.add(about, kind, textOrNull(before.localTag), textOrNull(after.localTag));
}

/// Whether two distinguished values differ at most in the data type, which is told of the element.
bool isSameValue(const Json& before, const Json& after) {
  if (before.type() != after.type() || before.size() != after.size() || !before.is_structured()) return before == after;
  if (before.is_array()) return std::equal(before.begin(), before.end(), after.begin(), isSameValue);
  const auto& members = before.get_ref<const Json::object_t&>();
  return std::all_of(members.begin(), members.end(), [&](const auto& member) {
    const auto& [name, value] = member;
    const bool tellsType = name == "dataType" || name == "elementSize";
    return after.contains(name) && (tellsType || isSameValue(value, after.at(name)));
  });
}

void compareAttribute(Comparison& comparison, const Change& about, const DumpedAttribute& before,
                      const DumpedAttribute& after) {
  if (before.requiredStatus != after.requiredStatus) {
    const bool more = demandsMore(before.requiredStatus, after.requiredStatus);
    comparison.add(about, more ? ChangeKind::RequirementAdded : ChangeKind::RequirementRemoved, before.requiredStatus,
                   after.requiredStatus);
  }
  if (!isSameValue(before.distinguishedValue, after.distinguishedValue)) {
    comparison.add(about, ChangeKind::DistinguishedValueChanged, before.distinguishedValue, after.distinguishedValue);
  }
  compareTagsOf(comparison, about, before, after);
  compareProperties(comparison, about, before.properties, after.properties);
}

/// An attribute by its element's label, and by how many attributes of that element are before it.
using AttributeKey = std::pair<std::string, std::size_t>;

struct AttributeList {
  explicit AttributeList(const DumpedSet& set) {
    std::map<std::string, std::size_t> counts;
    for (const DumpedAttribute& attribute : set.attributes) {
      const AttributeKey key(attribute.element, counts[attribute.element]++);
      inOrder.emplace_back(key, &attribute);
      byKey.emplace(key, &attribute);
    }
  }

  [[nodiscard]] const DumpedAttribute* find(const AttributeKey& key) const {
    const auto found = byKey.find(key);
    return found == byKey.end() ? nullptr : found->second;
  }

  /// The attributes that are also in the other list, in the order of this one.
  [[nodiscard]] std::vector<AttributeKey> sharedWith(const AttributeList& other) const {
    std::vector<AttributeKey> shared;
    for (const auto& [key, attribute] : inOrder) {
      if (other.find(key) != nullptr) shared.push_back(key);
    }
    return shared;
  }

  std::vector<std::pair<AttributeKey, const DumpedAttribute*>> inOrder;
  std::map<AttributeKey, const DumpedAttribute*> byKey;
};

Change aboutAttribute(const Comparison& comparison, const Change& aboutItsSet, const std::string& element) {
  Change about = aboutElement(comparison, element);
  about.set = aboutItsSet.set;
  return about;
}

std::string elementNames(const Comparison& comparison, const AttributeKey* first, const AttributeKey* end) {
  std::string names;
  for (; first != end; ++first) {
    const Change about = aboutElement(comparison, first->first);
    names += (names.empty() ? "" : ", ") + (about.element->name.empty() ? first->first : about.element->name);
  }
  return names;
}

/// @param before, after  the same attributes in both orders.
void compareOrder(Comparison& comparison, const Change& aboutItsSet, const std::vector<AttributeKey>& before,
                  const std::vector<AttributeKey>& after) {
  if (before == after) return;
  const auto first = std::mismatch(before.begin(), before.end(), after.begin()).first - before.begin();
  const auto end = before.rend() - std::mismatch(before.rbegin(), before.rend(), after.rbegin()).first;
  comparison.add(aboutItsSet, ChangeKind::AttributeOrderChanged,
                 elementNames(comparison, before.data() + first, before.data() + end),
                 elementNames(comparison, after.data() + first, after.data() + end));
}

void compareAttributes(Comparison& comparison, const Change& aboutItsSet, const DumpedSet& before,
                       const DumpedSet& after) {
  const AttributeList old(before);
  const AttributeList now(after);
  compareOrder(comparison, aboutItsSet, old.sharedWith(now), now.sharedWith(old));
  for (const auto& [key, attribute] : old.inOrder) {
    const Change about = aboutAttribute(comparison, aboutItsSet, key.first);
    if (const DumpedAttribute* counterpart = now.find(key)) {
      compareAttribute(comparison, about, *attribute, *counterpart);
    } else {
      comparison.add(about, ChangeKind::AttributeRemoved, attribute->requiredStatus);
    }
  }
  for (const auto& [key, attribute] : now.inOrder) {
    if (old.find(key) != nullptr) continue;
    const std::string& status = attribute->requiredStatus;
    const bool isRequired = demandsMore("Opt", status);
    comparison.add(aboutAttribute(comparison, aboutItsSet, key.first),
                   isRequired ? ChangeKind::RequiredAttributeAdded : ChangeKind::AttributeAdded, nullptr, status);
  }
}

std::string propertyOf(const DumpedSet& set, const char* key) {
  const std::string* value = findProperty(set.properties, key);
  return value == nullptr ? "" : *value;
}

Json baseOf(const Comparison& comparison, const DumpedSet& set) {
  const std::string key = propertyOf(set, "baseGroupUL");
  return key.empty() ? Json() : setReference(comparison, key);
}

void compareSet(Comparison& comparison, const DumpedSet& before, const DumpedSet& after) {
  const Change about = aboutSet(comparison, before.key);
  compareVersions(comparison, about);
  if (propertyOf(before, "baseGroupUL") != propertyOf(after, "baseGroupUL")) {
    comparison.add(about, ChangeKind::BaseChanged, baseOf(comparison, before), baseOf(comparison, after));
  }
  const bool wasAbstract = propertyOf(before, "abstract") == "true";
  const bool isAbstract = propertyOf(after, "abstract") == "true";
  if (isAbstract && !wasAbstract) comparison.add(about, ChangeKind::SetMadeAbstract);
  if (wasAbstract && !isAbstract) comparison.add(about, ChangeKind::SetMadeConcrete);
  compareProperties(comparison, about, before.properties, after.properties);
  compareAttributes(comparison, about, before, after);
}

}  // namespace

void compareSets(Comparison& comparison) {
  forEachInEither(comparison.before.sets, comparison.after.sets,
                  [&](const std::string& key, const DumpedSet* before, const DumpedSet* after) {
                    if (after == nullptr) {
                      comparison.add(aboutSet(comparison, key), ChangeKind::SetRemoved);
                    } else if (before == nullptr) {
                      comparison.add(aboutSet(comparison, key), ChangeKind::SetAdded);
                    } else {
                      compareSet(comparison, *before, *after);
                    }
                  });
}

}  // namespace MXF::Tessel::Tool
