#include "XPathImplementation.h"

#include "XPathDocument.h"
#include "parsing/Parser.h"

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>

#include <new>

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
  try {
    return new (manager) Parser(*this, *manager, grammarPool);
  } catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
  }
}

}  // namespace MXF::Tessel::XMLUtils::XPath
