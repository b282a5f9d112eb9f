// The one place where queries are evaluated. All else of the loader calls the functions of the header.

#include "XPathEvaluation.h"

#include <XMLUtils/Released.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/UnicodeString.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMXPathExpression.hpp>

#include <string>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;
using XMLUtils::Released;
using XMLUtils::UnicodeString;

namespace {

using xercesc::DOMNode;
using xercesc::DOMXPathExpression;
using xercesc::DOMXPathNSResolver;
using xercesc::DOMXPathResult;

/// Whether the query begins at the root ("/xs:schema/...") and its context node is the root.
bool isPathFromRoot(const DOMNode& context, const XMLCh* query) {
  const bool isRoot = context.getNodeType() == DOMNode::DOCUMENT_NODE;
  return isRoot && query[0] == u'/' && query[1] != u'/' && query[1] != u'\0';
}

xercesc::DOMXPathEvaluator& documentOf(DOMNode& context) {
  if (context.getNodeType() == DOMNode::DOCUMENT_NODE) return dynamic_cast<xercesc::DOMDocument&>(context);
  return *context.getOwnerDocument();
}

/// Evaluated on the root, a path from the root is evaluated as one from its context node: the same nodes in the same
/// order. XQilla takes the result of a path from "/" as unordered and sorts it by comparing positions sibling by
/// sibling, in time quadratic in the number of declarations; a relative path it knows to be in order. The "/" becomes a
/// blank, so that positions in XQilla's messages stay those of the query's text.
DOMXPathExpression* createExpression(DOMNode& context, const XMLCh* query, const DOMXPathNSResolver* resolver) {
  xercesc::DOMXPathEvaluator& evaluator = documentOf(context);
  if (!isPathFromRoot(context, query)) return evaluator.createExpression(query, resolver);
  std::u16string relativeQuery(query);
  relativeQuery.front() = u' ';
  return evaluator.createExpression(relativeQuery.c_str(), resolver);
}

/// An expression and its result on one context node, released together at the end of the scope.
class Evaluation {
 public:
  Evaluation(DOMNode& context, const XMLCh* query, const DOMXPathNSResolver* resolver, DOMXPathResult::ResultType type)
      : expression_(createExpression(context, query, resolver)),
        result_(expression_->evaluate(&context, type, nullptr)) {}

  DOMXPathResult* operator->() const { return result_.get(); }
  DOMXPathResult* get() const { return result_.get(); }

 private:
  Released<DOMXPathExpression> expression_;
  Released<DOMXPathResult> result_;
};

}  // namespace

void collectElements(DOMXPathResult* result, Elements& elements) {
  while (result->iterateNext()) elements.push_back(dynamic_cast<xercesc::DOMElement*>(result->getNodeValue()));
}

void selectElements(DOMNode& context, const XMLCh* query, const DOMXPathNSResolver* resolver, Elements& elements) {
  const Evaluation selected(context, query, resolver, DOMXPathResult::ITERATOR_RESULT_TYPE);
  collectElements(selected.get(), elements);
}

Templates::vector<WideString> selectAttributeValues(DOMNode& context, const WideString& query,
                                                    const DOMXPathNSResolver* resolver) {
  const UnicodeString text(query.c_str());
  const Evaluation selected(context, text.utf16(), resolver, DOMXPathResult::ITERATOR_RESULT_TYPE);
  Templates::vector<WideString> values;
  while (selected->iterateNext()) values.push_back(XMLUtils::toWstring(selected->getNodeValue()->getNodeValue()));
  return values;
}

DOMNode* firstNode(DOMNode& context, const XMLCh* query, const DOMXPathNSResolver* resolver) {
  const Evaluation first(context, query, resolver, DOMXPathResult::FIRST_RESULT_TYPE);
  return first->isNode() ? first->getNodeValue() : nullptr;
}

DOMNode* firstNode(DOMNode& context, const WideString& query, const DOMXPathNSResolver* resolver) {
  return firstNode(context, UnicodeString(query.c_str()).utf16(), resolver);
}

std::optional<WideString> firstText(DOMNode& context, const XMLCh* query, const DOMXPathNSResolver* resolver) {
  const DOMNode* node = firstNode(context, query, resolver);
  if (node == nullptr) return std::nullopt;
  return XMLUtils::toWstring(node->getNodeValue());
}

WideString evaluateString(DOMNode& context, const WideString& query, const DOMXPathNSResolver* resolver) {
  return evaluateString(context, UnicodeString(query.c_str()).utf16(), resolver);
}

WideString evaluateString(DOMNode& context, const XMLCh* query, const DOMXPathNSResolver* resolver) {
  return firstText(context, query, resolver).value_or(WideString());
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
