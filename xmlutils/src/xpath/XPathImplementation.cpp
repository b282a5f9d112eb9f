#include "XPathImplementation.h"

#include "XPathDocument.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
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

 private:
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
