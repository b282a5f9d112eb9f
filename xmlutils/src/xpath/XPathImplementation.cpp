#include "XPathImplementation.h"

#include "XPathDocument.h"
#include "parsing/Parser.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

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
