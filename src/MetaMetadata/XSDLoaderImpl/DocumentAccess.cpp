// Loading schema documents, and what their root elements say.

#include "DocumentAccess.h"

#include "SourceNames.h"

#include <Exceptions/Exceptions.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/UnicodeString.h>

#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <memory>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;
using XMLUtils::toWstring;

xercesc::DOMDocument* loadDocument(XSDLoaderImplData& data, const WideString& path, XMLUtils::Counting counting) {
  xercesc::DOMDocument* document = XMLUtils::loadDocumentFromFile(path.c_str(), *data.parser, counting);
  if (document == nullptr) {
    throw Exceptions::IOError((path + L" file Not Found!").c_str(), SourceNames::loaderImpl, __LINE__);
  }
  data.pathByDocument.emplace(document, std::make_shared<const WideString>(path));
  data.nsResolver = document->createNSResolver(document->getDocumentElement());
  registerNamespaces(data, *document);
  const XMLCh* schemaNamespace = data.nsResolver->lookupNamespaceURI(u"xs");
  data.schemaNamespace = &*data.schemaNamespaces.emplace(schemaNamespace != nullptr ? schemaNamespace : u"").first;
  return document;
}

void registerNamespaces(XSDLoaderImplData& data, xercesc::DOMDocument& document) {
  if (document.getDocumentElement() == nullptr) {
    failAssertion("document -> getDocumentElement ()", L"Unable to retrieve root element from document!",
                  SourceNames::loaderImpl, __LINE__);
  }
  const xercesc::DOMNamedNodeMap& attributes = *document.getDocumentElement()->getAttributes();
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    const xercesc::DOMNode& attribute = *attributes.item(i);
    if (!xercesc::XMLString::equals(attribute.getPrefix(), xercesc::XMLUni::fgXMLNSString)) continue;
    data.prefixByNamespace.emplace(toWstring(attribute.getNodeValue()), toWstring(attribute.getLocalName()));
    data.nsResolver->addNamespaceBinding(attribute.getLocalName(), attribute.getNodeValue());
  }
}

WideString targetNamespaceOf(const xercesc::DOMDocument& document) {
  WideString uri = attributeOf(*document.getDocumentElement(), u"targetNamespace");
  if (uri.empty()) {
    throw Exceptions::SchemeDataMissingException(L"Scheme document without target namespace URI.",
                                                 SourceNames::loaderImpl, __LINE__);
  }
  return uri;
}

WideString namespaceForPrefix(const xercesc::DOMDocument& document, const WideString& prefix) {
  const XMLUtils::UnicodeString name((L"xmlns:" + prefix).c_str());
  return attributeOf(*document.getDocumentElement(), name.utf16());
}

WideString attributeOf(const xercesc::DOMElement& element, const XMLCh* name) {
  return toWstring(element.getAttribute(name));
}

void failAssertion(const char* expression, const wchar_t* message, const char* file, int line) {
  throw Exceptions::ParseError((Utils::stringToWstring(expression) + L": " + message).c_str(), file, line);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
