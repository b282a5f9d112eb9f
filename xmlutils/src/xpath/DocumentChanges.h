#pragma once

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/impl/DOMDocumentImpl.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

/// Tells whether the document that a node is in has been changed since this was made.
class DocumentChanges {
 public:
  /// @param node  null stands for a document that never changes.
  explicit DocumentChanges(const xercesc::DOMNode* node) : document_(documentOf(node)), changes_(count()) {}

  bool any() const { return count() != changes_; }

 private:
  static const xercesc::DOMDocumentImpl* documentOf(const xercesc::DOMNode* node) {
    if (node == nullptr) return nullptr;
    const bool isDocument = node->getNodeType() == xercesc::DOMNode::DOCUMENT_NODE;
    const auto* document = isDocument ? static_cast<const xercesc::DOMDocument*>(node) : node->getOwnerDocument();
    return static_cast<const xercesc::DOMDocumentImpl*>(document);
  }
  int count() const { return document_ == nullptr ? 0 : document_->changes(); }

  const xercesc::DOMDocumentImpl* document_;
  int changes_;
};

}  // namespace MXF::Tessel::XMLUtils::XPath
