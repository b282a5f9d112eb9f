#pragma once

#include "QueryCache.h"

#include <xercesc/dom/impl/DOMDocumentImpl.hpp>

#include <deque>
#include <memory>

namespace MXF::Tessel::XMLUtils::XPath {

/// A document whose DOMXPathEvaluator face evaluates XPath 2.
class XPathDocument : public xercesc::DOMDocumentImpl {
 public:
  /// @param queries  shared with the other documents of the same parser.
  XPathDocument(xercesc::DOMImplementation* implementation, xercesc::MemoryManager* manager,
                std::shared_ptr<QueryCache> queries);
  XPathDocument(const XPathDocument&) = delete;
  XPathDocument& operator=(const XPathDocument&) = delete;
  ~XPathDocument() override;

  /// @throws XQillaException  the text is no query, or uses a prefix that the resolver does not bind.
  xercesc::DOMXPathExpression* createExpression(const XMLCh* expression,
                                                const xercesc::DOMXPathNSResolver* resolver) override;
  /// The resolver lives as long as the document.
  xercesc::DOMXPathNSResolver* createNSResolver(const xercesc::DOMNode* node) override;

 private:
  std::shared_ptr<QueryCache> queries_;
  std::deque<NodeBindings> resolvers_;
};

}  // namespace MXF::Tessel::XMLUtils::XPath
