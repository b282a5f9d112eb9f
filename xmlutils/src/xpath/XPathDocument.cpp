#include "XPathDocument.h"

#include "QueryResult.h"

#include <xercesc/dom/DOMXPathExpression.hpp>

#include <utility>

namespace MXF::Tessel::XMLUtils::XPath {

namespace {

/// What a user holds of a compiled query.
class Expression : public xercesc::DOMXPathExpression {
 public:
  explicit Expression(std::shared_ptr<CompiledQuery> query) : query_(std::move(query)) {}

  xercesc::DOMXPathResult* evaluate(const xercesc::DOMNode* contextNode, xercesc::DOMXPathResult::ResultType type,
                                    xercesc::DOMXPathResult* /*reusable*/) const override {
    QueryResult& result = query_->take();
    try {
      result.evaluate(contextNode, type, query_);
    } catch (...) {
      query_->giveBack(result);
      throw;
    }
    return &result;
  }

  void release() override { delete this; }

 private:
  ~Expression() override = default;

  std::shared_ptr<CompiledQuery> query_;
};

}  // namespace

XPathDocument::XPathDocument(xercesc::DOMImplementation* implementation, xercesc::MemoryManager* manager,
                             std::shared_ptr<QueryCache> queries)
    : DOMDocumentImpl(implementation, manager), queries_(std::move(queries)) {}

XPathDocument::~XPathDocument() = default;

xercesc::DOMXPathExpression* XPathDocument::createExpression(const XMLCh* expression,
                                                             const xercesc::DOMXPathNSResolver* resolver) {
  return new Expression(queries_->query(expression, resolver));
}

xercesc::DOMXPathNSResolver* XPathDocument::createNSResolver(const xercesc::DOMNode* node) {
  return &resolvers_.emplace_back(node, queries_->clock());
}

}  // namespace MXF::Tessel::XMLUtils::XPath
