// The properties of elements that sets do not share.

#include "ElementProperties.h"

#include "SourceNames.h"
#include "XmlProperties.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>

namespace MXF::Tessel::MetaMetadata::Loading {

void setElementProperties(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, MetaElement& element) {
  addRegistryName(data, declaration, data.queries.elementName, element);
  addDocumentation(data, declaration, element);
  if (data.withLengthDescription) {
    addTextUnlessEmpty(data, declaration, data.queries.elementLength, PropertyKeys::lengthDescription, element);
  }
  addXmlName(data, declaration, element);
}

void setChildTagName(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, MetaElement& element) {
  Visitors::GetNonConstMetaElementVisitor<MetaCollection> collection;
  element.accept(collection);
  if (collection.get() == nullptr) return;
  if (!addTextUnlessEmpty(data, declaration,
                          u"./xs:complexType/xs:complexContent/*[@base]/xs:sequence/xs:element/@name",
                          PropertyKeys::xmlChildTagName, element)) {
    throw Exceptions::InvalidMetaElementDeclaration("Empty name attribute", SourceNames::loaderImpl, __LINE__);
  }
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
