#pragma once

#include <string>
#include <vector>

/// What can differ between two dictionaries, and which differences break.
namespace MXF::Tessel::Tool {

enum class ChangeKind {
  ElementRemoved,
  ElementAdded,
  VersionChanged,
  DataTypeChanged,
  ItemTypeChanged,
  AllowedSetRemoved,
  AllowedSetAdded,
  UndeclaredSetRemoved,
  UndeclaredSetAdded,
  SetRemoved,
  SetAdded,
  BaseChanged,
  SetMadeAbstract,
  SetMadeConcrete,
  AttributeRemoved,
  AttributeAdded,
  RequiredAttributeAdded,
  AttributeOrderChanged,
  RequirementAdded,
  RequirementRemoved,
  DistinguishedValueChanged,
  SemanticsValidationChanged,
  LocalTagRemoved,
  LocalTagChanged,
  LocalTagReused,
  LocalTagAdded,
  XmlNameChanged,
  XmlNameAdded,
  XmlItemNameChanged,
  XmlNamespaceChanged,
  NameChanged,
  PrefixChanged,
  DocumentationChanged,
  LengthDescriptionChanged
};

/// A change breaks when a file or XML document that is valid by the old dictionary may be invalid, or have another
/// meaning, by the new one.
struct ChangeRule {
  ChangeKind kind;
  const char* id;        ///< What programs know it by; never changes.
  bool breaks;           ///< Otherwise it is compatible.
  const char* title;     ///< What happened, as people are told of one change.
  const char* sentence;  ///< What the kind means.
};

/// All kinds, in the order of the enumeration.
const std::vector<ChangeRule>& changeRules();

const ChangeRule& ruleOf(ChangeKind kind);

/// "breaking" or "compatible".
const char* className(const ChangeRule& rule);

/// The rules as lines for a help text: id, class, sentence.
std::string changeRuleLines();

}  // namespace MXF::Tessel::Tool
