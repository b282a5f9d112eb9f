// Compares the texts that elements, sets and attributes have. Properties that other members of a dump hold as well, or
// that follow from the order of attributes, are not in the table.

#include "diff/ComparisonSteps.h"

namespace MXF::Tessel::Tool {

namespace {

struct ComparedProperty {
  const char* key;
  ChangeKind kind;
  std::optional<ChangeKind> whenAdded;
};

constexpr ComparedProperty comparedProperties[] = {
    {"RequiresSemanticsValidation", ChangeKind::SemanticsValidationChanged, ChangeKind::SemanticsValidationChanged},
    {"XMLTagName", ChangeKind::XmlNameChanged, ChangeKind::XmlNameAdded},
    {"XMLChildTagName", ChangeKind::XmlItemNameChanged, std::nullopt},  // comes and goes with the kind of data type
    {"XMLNamespaceURI", ChangeKind::XmlNamespaceChanged, ChangeKind::XmlNamespaceChanged},
    {"name", ChangeKind::NameChanged, ChangeKind::NameChanged},
    {"XMLDefaultPrefix", ChangeKind::PrefixChanged, ChangeKind::PrefixChanged},
    {"Documentation", ChangeKind::DocumentationChanged, ChangeKind::DocumentationChanged},
    {"LengthDescription", ChangeKind::LengthDescriptionChanged, ChangeKind::LengthDescriptionChanged}};

Json textOrNull(const std::string* text) {
  return text == nullptr ? Json() : Json(*text);
}

}  // namespace

void compareProperties(Comparison& comparison, const Change& about, const DumpedProperties& before,
                       const DumpedProperties& after) {
  for (const ComparedProperty& property : comparedProperties) {
    const std::string* old = findProperty(before, property.key);
    const std::string* now = findProperty(after, property.key);
    if (old == nullptr && now == nullptr) continue;
    if (old != nullptr && now != nullptr && *old == *now) continue;
    const bool isItemName = !property.whenAdded;
    if (isItemName && (old == nullptr || now == nullptr)) continue;
    if (isNotDumped(comparison, property.key)) continue;
    comparison.add(about, old == nullptr ? *property.whenAdded : property.kind, textOrNull(old), textOrNull(now));
  }
}

}  // namespace MXF::Tessel::Tool
