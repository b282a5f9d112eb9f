#pragma once

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/impl/DOMDocumentImpl.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

/// Counts the changes of the document that the node is in; 0 for null.
inline int changesOf(const xercesc::DOMNode* node) {
  if (node == nullptr) return 0;
  const bool isDocument = node->getNodeType() == xercesc::DOMNode::DOCUMENT_NODE;
  const auto* document = isDocument ? static_cast<const xercesc::DOMDocument*>(node) : node->getOwnerDocument();
  return document == nullptr ? 0 : static_cast<const xercesc::DOMDocumentImpl*>(document)->changes();
}

}  // namespace MXF::Tessel::XMLUtils::XPath
