#include "diff/ComparisonSteps.h"

namespace MXF::Tessel::Tool {

namespace {

using TagOfElement = std::pair<std::string, std::string>;  // tag and label
using TagsOfElements = std::set<TagOfElement>;

TagsOfElements tagsOfAttributes(const DictionaryDump& dump) {
  TagsOfElements tags;
  for (const auto& [key, set] : dump.sets) {
    for (const DumpedAttribute& attribute : set.attributes) {
      if (attribute.localTag) tags.emplace(*attribute.localTag, attribute.element);
    }
  }
  return tags;
}

/// A label that the tag stands for, if any.
const std::string* firstLabelOf(const TagsOfElements& tags, const std::string& tag) {
  const auto first = tags.lower_bound({tag, ""});
  return first == tags.end() || first->first != tag ? nullptr : &first->second;
}

Json elementReference(const Comparison& comparison, const std::string& label) {
  const Change about = aboutElement(comparison, label);
  return {{"label", label}, {"name", about.element->name.empty() ? Json() : Json(about.element->name)}};
}

}  // namespace

void compareLocalTags(Comparison& comparison) {
  const TagsOfElements& before = comparison.before.localTags;
  const TagsOfElements& after = comparison.after.localTags;
  const TagsOfElements usedBefore = tagsOfAttributes(comparison.before);
  const TagsOfElements usedAfter = tagsOfAttributes(comparison.after);
  for (const TagOfElement& tag : before) {
    const bool isToldOfAttribute = usedBefore.count(tag) > 0 && usedAfter.count(tag) == 0;
    if (after.count(tag) > 0 || isToldOfAttribute) continue;
    comparison.add(aboutElement(comparison, tag.second), ChangeKind::LocalTagRemoved, tag.first);
  }
  for (const TagOfElement& tag : after) {
    if (before.count(tag) > 0) continue;
    const bool isToldOfAttribute = usedAfter.count(tag) > 0 && usedBefore.count(tag) == 0;
    const std::string* other = firstLabelOf(before, tag.first);
    if (other != nullptr) {
      comparison.add(aboutElement(comparison, tag.second), ChangeKind::LocalTagReused,
                     elementReference(comparison, *other), tag.first);
    } else if (!isToldOfAttribute) {
      comparison.add(aboutElement(comparison, tag.second), ChangeKind::LocalTagAdded, nullptr, tag.first);
    }
  }
}

}  // namespace MXF::Tessel::Tool
