// The properties that elements and sets have alike.

#include "XmlProperties.h"

#include "DocumentAccess.h"
#include "SourceNames.h"
#include "XPathEvaluation.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/PropertyKeys.h>

namespace MXF::Tessel::MetaMetadata::Loading {

using Exceptions::InvalidMetaElementDeclaration;
using Templates::WideString;

bool addTextUnlessEmpty(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, const wchar_t* query,
                        const wchar_t* key, PropertyMap& properties) {
  return addTextUnlessEmpty(data, declaration, XMLUtils::UnicodeString(query).utf16(), key, properties);
}

bool addTextUnlessEmpty(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, const XMLCh* query,
                        const wchar_t* key, PropertyMap& properties) {
  const WideString text = evaluateString(declaration, query, data.nsResolver);
  if (text.empty()) return false;
  properties.addProperty(key, text.c_str());
  return true;
}

void addRegistryName(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, const wchar_t* nameQuery,
                     PropertyMap& properties) {
  if (!addTextUnlessEmpty(data, declaration, nameQuery, PropertyKeys::name, properties)) {
    throw InvalidMetaElementDeclaration("The property 'name' is required.", SourceNames::loaderImpl, __LINE__);
  }
}

void addDocumentation(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, PropertyMap& properties) {
  if (!data.withDocumentation) return;
  addTextUnlessEmpty(data, declaration, u"./xs:annotation/xs:documentation/text()", PropertyKeys::documentation,
                     properties);
}

void addXmlName(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, PropertyMap& properties) {
  addTextUnlessEmpty(data, declaration, u"./@name", PropertyKeys::xmlTagName, properties);
  const WideString uri = targetNamespaceOf(*declaration.getOwnerDocument());
  properties.addProperty(PropertyKeys::xmlNamespaceURI, uri.c_str());
  const auto prefix = data.prefixByNamespace.find(uri);
  if (prefix == data.prefixByNamespace.end()) {
    throw InvalidMetaElementDeclaration((L"No default prefix defined for namespace: " + uri).c_str(),
                                        SourceNames::loaderImpl, __LINE__);
  }
  data.budget->takeRepeatedText(uri.size() + prefix->second.size());
  properties.addProperty(PropertyKeys::xmlDefaultPrefix, prefix->second.c_str());
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
