// The one table of change kinds: the comparison, its output, the help and the tests of the documents read it.

#include "diff/ChangeKinds.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

constexpr bool breaks = true;
constexpr bool isCompatible = false;

}  // namespace

const std::vector<ChangeRule>& changeRules() {
  using Kind = ChangeKind;
  static const std::vector<ChangeRule> rules = {
      {Kind::ElementRemoved, "element-removed", breaks, "element removed", "An element is gone."},
      {Kind::ElementAdded, "element-added", isCompatible, "element added", "An element is new."},
      {Kind::VersionChanged, "version-changed", isCompatible, "version byte",
       "The version byte of a label or key is another."},
      {Kind::DataTypeChanged, "data-type-changed", breaks, "data type", "An element holds values of another type."},
      {Kind::ItemTypeChanged, "item-type-changed", breaks, "item type", "A collection holds items of another type."},
      {Kind::AllowedSetRemoved, "allowed-set-removed", breaks, "allowed set removed",
       "An element's references no longer allow a set."},
      {Kind::AllowedSetAdded, "allowed-set-added", isCompatible, "allowed set added",
       "An element's references allow one more set."},
      {Kind::UndeclaredSetRemoved, "undeclared-set-removed", isCompatible, "undeclared set removed",
       "An element refers to one undeclared set less."},
      {Kind::UndeclaredSetAdded, "undeclared-set-added", isCompatible, "undeclared set added",
       "An element refers to one more undeclared set."},
      {Kind::SetRemoved, "set-removed", breaks, "set removed", "A set is gone."},
      {Kind::SetAdded, "set-added", isCompatible, "set added", "A set is new."},
      {Kind::BaseChanged, "base-changed", breaks, "base", "A set derives from another base, or one is gone or new."},
      {Kind::SetMadeAbstract, "set-made-abstract", breaks, "made abstract",
       "Files may no longer contain a set itself."},
      {Kind::SetMadeConcrete, "set-made-concrete", isCompatible, "made concrete", "Files may contain a set itself."},
      {Kind::AttributeRemoved, "attribute-removed", breaks, "attribute removed", "A set no longer has an attribute."},
      {Kind::AttributeAdded, "attribute-added", isCompatible, "attribute added",
       "A set has one more attribute, Opt or B.Effort."},
      {Kind::RequiredAttributeAdded, "required-attribute-added", breaks, "required attribute added",
       "A set has one more attribute, Req, D/req or E/req."},
      {Kind::AttributeOrderChanged, "attribute-order-changed", breaks, "attribute order changed",
       "A set has its attributes in another order."},
      {Kind::RequirementAdded, "requirement-added", breaks, "required status",
       "Writers (Req, E/req) or readers (Req, D/req) need more."},
      {Kind::RequirementRemoved, "requirement-removed", isCompatible, "required status",
       "A required status changes in any other way."},
      {Kind::DistinguishedValueChanged, "distinguished-value-changed", breaks, "distinguished value",
       "A distinguished value is another, gone or new."},
      {Kind::SemanticsValidationChanged, "semantics-validation-changed", isCompatible, "semantics validation",
       "An attribute's note on semantic validation is another."},
      {Kind::LocalTagRemoved, "local-tag-removed", breaks, "local tag removed",
       "An attribute or element no longer has a local tag."},
      {Kind::LocalTagChanged, "local-tag-changed", breaks, "local tag", "An attribute has another local tag."},
      {Kind::LocalTagReused, "local-tag-reused", breaks, "local tag reused",
       "A tag that stood for other elements stands for this one."},
      {Kind::LocalTagAdded, "local-tag-added", isCompatible, "local tag added",
       "An attribute or element has a local tag that was free."},
      {Kind::XmlNameChanged, "xml-name-changed", breaks, "XML name",
       "The XML name of an element or set is another, or gone."},
      {Kind::XmlNameAdded, "xml-name-added", isCompatible, "XML name", "An element or set without XML name has one."},
      {Kind::XmlItemNameChanged, "xml-item-name-changed", breaks, "XML name of items",
       "The items of a collection have another XML name."},
      {Kind::XmlNamespaceChanged, "xml-namespace-changed", breaks, "XML namespace",
       "An element, set or attribute has another XML namespace."},
      {Kind::NameChanged, "name-changed", isCompatible, "name", "The registry name of an element or set is another."},
      {Kind::PrefixChanged, "prefix-changed", isCompatible, "XML prefix",
       "The default prefix of an XML namespace is another."},
      {Kind::DocumentationChanged, "documentation-changed", isCompatible, "documentation",
       "The documentation is another, gone or new."},
      {Kind::LengthDescriptionChanged, "length-description-changed", isCompatible, "length",
       "The length description is another, gone or new."}};
  return rules;
}

const ChangeRule& ruleOf(ChangeKind kind) {
  return changeRules()[static_cast<std::size_t>(kind)];
}

const char* className(const ChangeRule& rule) {
  return rule.breaks ? "breaking" : "compatible";
}

std::string changeRuleLines() {
  std::size_t width = 0;
  for (const ChangeRule& rule : changeRules()) width = std::max(width, std::string(rule.id).size());
  std::string lines;
  for (const ChangeRule& rule : changeRules()) {
    std::string id = rule.id;
    std::string name = className(rule);
    id.resize(width + 2, ' ');
    name.resize(12, ' ');
    lines.append(lines.empty() ? "  " : "\n  ").append(id).append(name).append(rule.sentence);
  }
  return lines;
}

}  // namespace MXF::Tessel::Tool
