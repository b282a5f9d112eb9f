#include "AttributeComparison.h"

#include <XMLUtils/AttributeTypes.h>

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xqilla/ast/StaticAnalysis.hpp>
#include <xqilla/ast/XQAtomize.hpp>
#include <xqilla/ast/XQLiteral.hpp>
#include <xqilla/ast/XQStep.hpp>
#include <xqilla/axis/NodeTest.hpp>
#include <xqilla/context/Collation.hpp>
#include <xqilla/context/DynamicContext.hpp>
#include <xqilla/context/impl/CodepointCollation.hpp>
#include <xqilla/items/ATBooleanOrDerived.hpp>
#include <xqilla/operators/GeneralComp.hpp>
#include <xqilla/optimizer/ASTVisitor.hpp>
#include <xqilla/xerces/XercesConfiguration.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

using xercesc::DOMAttr;
using xercesc::DOMElement;
using xercesc::DOMNode;
using xercesc::XMLString;

namespace {

/// The two sides of a comparison that can be made by text; null where it is none.
struct TextComparison {
  const ASTNode* attributes = nullptr;
  const XMLCh* literal = nullptr;
  const XMLCh* attributeName = nullptr;  ///< Set when the attributes are the one of this name, of the context element.

  explicit operator bool() const { return attributes != nullptr && literal != nullptr; }
};

/// The expression under an atomisation, if it gives attributes only.
const ASTNode* attributesOf(const ASTNode& side) {
  if (side.getType() != ASTNode::ATOMIZE) return nullptr;
  const ASTNode* nodes = static_cast<const XQAtomize&>(side).getExpression();
  return nodes->getStaticAnalysis().getStaticType().isType(StaticType::ATTRIBUTE_TYPE) ? nodes : nullptr;
}

/// The name in a step like "@source": one attribute in no namespace. Null for any other expression.
const XMLCh* attributeNameIn(const ASTNode* expression) {
  if (expression == nullptr || expression->getType() != ASTNode::STEP) return nullptr;
  const auto& step = static_cast<const XQStep&>(*expression);
  const NodeTest* test = step.getNodeTest();
  const bool isName = step.getAxis() == XQStep::ATTRIBUTE && test->getItemType() == nullptr &&
                      !test->getNameWildcard() && !test->getNamespaceWildcard();
  const bool isInNamespace = test->getNodeUri() != nullptr && *test->getNodeUri() != u'\0';
  return isName && !isInNamespace ? test->getNodeName() : nullptr;
}

const XMLCh* stringLiteralOf(const ASTNode& side) {
  if (side.getType() != ASTNode::LITERAL) return nullptr;
  const auto& literal = static_cast<const XQLiteral&>(side);
  return literal.getPrimitiveType() == AnyAtomicType::STRING ? literal.getValue() : nullptr;
}

TextComparison textComparisonOf(const GeneralComp& comparison) {
  const bool isPlainEquality =
      comparison.getOperation() == GeneralComp::EQUAL && !comparison.getXPath1CompatibilityMode() &&
      comparison.getCollation() != nullptr &&
      XMLString::equals(comparison.getCollation()->getCollationName(), CodepointCollation::getCodepointCollationName());
  const VectorOfASTNodes& sides = comparison.getArguments();
  if (!isPlainEquality || sides.size() != 2) return {};
  const ASTNode* attributes = attributesOf(*sides[0]);
  return {attributes, stringLiteralOf(*sides[1]), attributeNameIn(attributes)};
}

/// Lives, like every node of a query, in its context's memory, and is never destroyed: it must own nothing.
class AttributeEqualsText : public GeneralComp {
 public:
  AttributeEqualsText(const GeneralComp& original, const TextComparison& sides, XPath2MemoryManager* memory)
      : GeneralComp(EQUAL, original.getArguments(), original.getCollation(), false, memory), sides_(sides) {
    _src.copy(original.getStaticAnalysis());
    setLocationInfo(&original);
  }

  BoolResult boolResult(DynamicContext* context) const override {
    const DOMNode* element = sides_.attributeName == nullptr ? nullptr : contextNodeOf(*context);
    if (element != nullptr && element->getNodeType() == DOMNode::ELEMENT_NODE) {
      const DOMAttr* attribute =
          static_cast<const DOMElement&>(*element).getAttributeNodeNS(nullptr, sides_.attributeName);
      if (attribute == nullptr) return false;
      if (!hasType(*attribute)) return XMLString::equals(attribute->getValue(), sides_.literal);
    }
    return compareAll(context);
  }

 private:
  static const DOMNode* contextNodeOf(const DynamicContext& context) {
    const Item::Ptr item = context.getContextItem();
    if (item.isNull() || !item->isNode()) return nullptr;
    return static_cast<const DOMNode*>(item->getInterface(XercesConfiguration::gXerces));
  }

  BoolResult compareAll(DynamicContext* context) const {
    Result attributes = sides_.attributes->createResult(context);
    for (Item::Ptr item = attributes->next(context); item.notNull(); item = attributes->next(context)) {
      const auto* node = static_cast<const DOMNode*>(item->getInterface(XercesConfiguration::gXerces));
      if (node == nullptr || hasType(static_cast<const DOMAttr&>(*node))) return GeneralComp::boolResult(context);
      if (XMLString::equals(node->getNodeValue(), sides_.literal)) return true;
    }
    return false;
  }

  TextComparison sides_;
};

class Replacer : public ASTVisitor {
 protected:
  ASTNode* optimizeOperator(XQOperator* item) override {
    const auto* comparison = dynamic_cast<const GeneralComp*>(item);
    const TextComparison sides = comparison == nullptr ? TextComparison() : textComparisonOf(*comparison);
    if (!sides) return ASTVisitor::optimizeOperator(item);
    XPath2MemoryManager* memory = item->getMemoryManager();
    return new (memory) AttributeEqualsText(*comparison, sides, memory);
  }
};

}  // namespace

void compareAttributesAsText(XQQuery& query) {
  Replacer().startOptimize(&query);
}

}  // namespace MXF::Tessel::XMLUtils::XPath
