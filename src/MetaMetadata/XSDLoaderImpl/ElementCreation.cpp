// An element declaration becomes an element of the right class. Entry point: createMetaElement().

#include "ElementCreation.h"

#include "DeclarationOrigins.h"
#include "DocumentAccess.h"
#include "ElementProperties.h"
#include "Names.h"
#include "PendingSetReferences.h"
#include "SourceNames.h"
#include "XPathEvaluation.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <Types/Factories/BaseTypeFactory.h>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::auto_ptr;
using Templates::WideString;
using Types::UniversalLabel;
using Types::Factories::BaseTypeFactory;
using Types::Identifiers::Identifier;

namespace {

// SMPTE ST 434 writes a reference to a set by its identifier as an element of this name; it is no group.
constexpr const wchar_t* referenceElementMark = L"_REF";

auto_ptr<MetaElement> createValueElement(xercesc::DOMElement& declaration, const UniversalLabel& label,
                                         const DeclaredType& type) {
  const BaseTypeFactory& factory = BaseTypeFactory::instance();
  if (!isCollectionKind(type.dataType)) {
    factory.lookupSimpleType(type.dataType);
    return auto_ptr<MetaElement>(new MetaSimpleElement(label, type.dataType));
  }
  factory.lookupCollectionType(type.dataType);
  if (type.subType == Identifier::Unknown) {
    const WideString message =
        L"MetaElement Declaration of type collection with unknown sub data type: " + attributeOf(declaration, u"name");
    throw Exceptions::InvalidMetaElementDeclaration(message.c_str(), SourceNames::loaderImpl, __LINE__);
  }
  factory.lookupSimpleType(type.subType);
  return auto_ptr<MetaElement>(
      new MetaCollection(label, MetaCollectionElement::CollectionSizeLimits(), type.dataType, type.subType));
}

auto_ptr<MetaElement> newReferenceElement(const UniversalLabel& label, const DeclaredType& type) {
  const BaseTypeFactory& factory = BaseTypeFactory::instance();
  const MetaReferenceHolder::Keys allowedSets;
  if (!isCollectionKind(type.dataType)) {
    factory.lookupSimpleType(type.dataType);
    return auto_ptr<MetaElement>(new MetaReferenceElement(label, allowedSets, type.dataType));
  }
  factory.lookupCollectionType(type.dataType);
  factory.lookupSimpleType(type.subType);
  return auto_ptr<MetaElement>(new MetaReferenceCollection(label, MetaCollectionElement::CollectionSizeLimits(),
                                                           allowedSets, type.dataType, type.subType));
}

auto_ptr<MetaElement> createReferenceElement(const XSDLoaderImplData& data, xercesc::DOMElement& declaration,
                                             const UniversalLabel& label, const DeclaredType& type) {
  auto_ptr<MetaElement> element = newReferenceElement(label, type);
  element->addProperty(PropertyKeys::unresolvedSetReferences, referencedSetList(data, declaration).c_str());
  return element;
}

}  // namespace

auto_ptr<MetaElement> createMetaElement(const XSDLoaderImplData& data, xercesc::DOMElement& declaration,
                                        const UniversalLabel& label, const DeclaredType& type) {
  auto_ptr<MetaElement> element = isReferenceType(type) ? createReferenceElement(data, declaration, label, type)
                                                        : createValueElement(declaration, label, type);
  element->setOrigin(originOf(data, declaration));
  setElementProperties(data, declaration, *element);
  setChildTagName(data, declaration, *element);
  return element;
}

bool isReferenceType(const DeclaredType& type) {
  return isReference(type.dataType) || isReference(type.subType);
}

WideString referencedSetList(const XSDLoaderImplData& data, xercesc::DOMElement& declaration) {
  WideString list;
  for (const WideString& value :
       selectAttributeValues(declaration, L"./*/*/*/xs:choice/xs:element/@ref", data.nsResolver)) {
    if (value.find(referenceElementMark) != WideString::npos) continue;
    const WideString uri = namespaceForPrefix(*declaration.getOwnerDocument(), qnamePrefix(value));
    data.budget->takeRepeatedText(uri.size());
    appendPendingReference(list, qnameLocalPart(value), uri);
  }
  return list;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
