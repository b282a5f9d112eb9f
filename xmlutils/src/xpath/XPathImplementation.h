#pragma once

#include <xercesc/dom/impl/DOMImplementationImpl.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

/// Xerces-C's DOM implementation with documents that evaluate XPath 2 by XQilla. All documents of one parser share
/// their compiled queries, which go with the last of them.
class XPathImplementation : public xercesc::DOMImplementationImpl {
 public:
  xercesc::DOMDocument* createDocument(const XMLCh* namespaceUri, const XMLCh* qualifiedName,
                                       xercesc::DOMDocumentType* doctype, xercesc::MemoryManager* manager) override;
  xercesc::DOMDocument* createDocument(xercesc::MemoryManager* manager) override;
  xercesc::DOMLSParser* createLSParser(DOMImplementationLSMode mode, const XMLCh* schemaType,
                                       xercesc::MemoryManager* manager, xercesc::XMLGrammarPool* grammarPool) override;
};

}  // namespace MXF::Tessel::XMLUtils::XPath
