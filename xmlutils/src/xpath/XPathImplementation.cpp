#include "XPathImplementation.h"

#include "XPathDocument.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/impl/DOMElementImpl.hpp>
#include <xercesc/dom/impl/DOMTextImpl.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/parsers/DOMLSParserImpl.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

namespace {

/// A parser that makes XPathDocuments. Xerces-C could be told to take its documents from a registered implementation,
/// but the registration is process-wide and outlives a library that is unloaded.
class Parser : public xercesc::DOMLSParserImpl {
 public:
  Parser(XPathImplementation& implementation, xercesc::MemoryManager* manager, xercesc::XMLGrammarPool* grammarPool)
      : DOMLSParserImpl(nullptr, manager, grammarPool), implementation_(implementation) {}

  void startDocument() override {
    fDocument = new (fMemoryManager) XPathDocument(&implementation_, fMemoryManager, queries_);
    fCurrentParent = fDocument;
    fCurrentNode = fDocument;
    fDocument->setErrorChecking(false);  // until endDocument()
    fDocument->setDocumentURI(fScanner->getLocator()->getSystemId());
    fDocument->setInputEncoding(fScanner->getReaderMgr()->getCurrentEncodingStr());
  }

  /// Appends a text to the current element. Xerces-C finds the parts of each node that it links by half a dozen run-time
  /// casts, a third of what parsing costs; texts and elements, whose classes are known here, are linked without. Only with
  /// the version whose nodes are known to be linked like this.
  void docCharacters(const XMLCh* chars, const XMLSize_t length, const bool cdataSection) override {
    const bool beginsText = isKnownVersion && fWithinElement && !cdataSection && getFilter() == nullptr &&
                            fCurrentNode->getNodeType() != xercesc::DOMNode::TEXT_NODE &&
                            fCurrentParent->getNodeType() == xercesc::DOMNode::ELEMENT_NODE;
    if (!beginsText) {
      DOMLSParserImpl::docCharacters(chars, length, cdataSection);
      return;
    }
    auto* text = static_cast<xercesc::DOMTextImpl*>(createText(chars, length));
    appendText(static_cast<xercesc::DOMElementImpl*>(fCurrentParent)->fParent, *text);
    fCurrentNode = text;
  }

 private:
  static constexpr bool isKnownVersion = XERCES_VERSION_MAJOR == 3 && XERCES_VERSION_MINOR == 2;

  /// Where a child keeps its siblings.
  static xercesc::DOMChildNode& siblingsOf(xercesc::DOMNode& node) {
    switch (node.getNodeType()) {
      case xercesc::DOMNode::ELEMENT_NODE:
        return static_cast<xercesc::DOMElementImpl&>(static_cast<xercesc::DOMElement&>(node)).fChild;
      case xercesc::DOMNode::TEXT_NODE:
        return static_cast<xercesc::DOMTextImpl&>(static_cast<xercesc::DOMText&>(node)).fChild;
      default:
        return *dynamic_cast<xercesc::HasDOMChildImpl&>(node).getChildNodeImpl();
    }
  }

  /// Adds the text as the last child: the first child's previous sibling is the last.
  static void appendText(xercesc::DOMParentNode& parent, xercesc::DOMTextImpl& text) {
    text.fNode.fOwnerNode = parent.fContainingNode;
    text.fNode.isOwned(true);
    if (parent.fFirstChild == nullptr) {
      parent.fFirstChild = &text;
      text.fNode.isFirstChild(true);
      text.fChild.previousSibling = &text;
      return;
    }
    xercesc::DOMChildNode& first = siblingsOf(*parent.fFirstChild);
    siblingsOf(*first.previousSibling).nextSibling = &text;
    text.fChild.previousSibling = first.previousSibling;
    first.previousSibling = &text;
  }

  XPathImplementation& implementation_;
  std::shared_ptr<QueryCache> queries_ = std::make_shared<QueryCache>();
};

}  // namespace

xercesc::DOMDocument* XPathImplementation::createDocument(const XMLCh* namespaceUri, const XMLCh* qualifiedName,
                                                          xercesc::DOMDocumentType* doctype,
                                                          xercesc::MemoryManager* manager) {
  xercesc::DOMDocument* document = createDocument(manager);
  if (doctype != nullptr) document->appendChild(doctype);
  if (qualifiedName != nullptr) document->appendChild(document->createElementNS(namespaceUri, qualifiedName));
  return document;
}

xercesc::DOMDocument* XPathImplementation::createDocument(xercesc::MemoryManager* manager) {
  return new (manager) XPathDocument(this, manager, std::make_shared<QueryCache>());
}

xercesc::DOMLSParser* XPathImplementation::createLSParser(DOMImplementationLSMode mode, const XMLCh* /*schemaType*/,
                                                          xercesc::MemoryManager* manager,
                                                          xercesc::XMLGrammarPool* grammarPool) {
  if (mode == MODE_ASYNCHRONOUS) {
    throw xercesc::DOMException(xercesc::DOMException::NOT_SUPPORTED_ERR, 0, manager);
  }
  return new (manager) Parser(*this, manager, grammarPool);
}

}  // namespace MXF::Tessel::XMLUtils::XPath
