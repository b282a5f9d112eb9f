// The data type of an element declaration. Entry point: resolveDataType().

#include "DataTypeMapping.h"

#include "DocumentAccess.h"
#include "Names.h"
#include "SourceNames.h"
#include "XPathEvaluation.h"

#include <Exceptions/Exceptions.h>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;
using Types::Identifiers::Identifier;
using Types::Identifiers::stringToIdentifier;

namespace {

struct ReferenceKind {
  const wchar_t* name;
  DeclaredType type;
};

constexpr ReferenceKind referenceKinds[] = {
    {L"StrongRefBatch", {Identifier::Batch, Identifier::StrongReference}},
    {L"WeakRefBatch", {Identifier::Batch, Identifier::WeakReference}},
    {L"StrongRefArray", {Identifier::Array, Identifier::StrongReference}},
    {L"WeakRefArray", {Identifier::Array, Identifier::WeakReference}},
    {L"WeakRefHolder", {Identifier::WeakReference, Identifier::Unknown}},
    {L"StrongRefHolder", {Identifier::StrongReference, Identifier::Unknown}},
};

}  // namespace

DeclaredType resolveDataType(xercesc::DOMElement& declaration, const xercesc::DOMXPathNSResolver* resolver) {
  DeclaredType type;
  const WideString typeName = qnameLocalPart(attributeOf(declaration, u"type"));
  type.dataType = stringToIdentifier(typeName.c_str());
  if (type.dataType != Identifier::Unknown) return type;

  // Only a declaration without a type of its own is asked for the base of the type inside it.
  const WideString name = typeName.empty() ? baseTypeName(declaration) : WideString();
  type.dataType = stringToIdentifier(name.c_str());
  if (isCollectionKind(type.dataType)) {
    type.subType = collectionSubType(declaration, resolver);
  } else if (type.dataType == Identifier::Unknown) {
    referenceKind(name, type);
  }
  if (type.dataType == Identifier::Unknown) {
    const WideString message =
        L"MetaElement type not supported, unknown data type: " + attributeOf(declaration, u"name");
    throw Exceptions::TypeNotSupportedException(message.c_str(), SourceNames::loaderImpl, __LINE__);
  }
  return type;
}

WideString baseTypeName(xercesc::DOMElement& declaration) {
  for (const XMLCh* query : {u"./*/*/*/@base", u"./*/*/@base"}) {
    if (const auto base = firstText(declaration, query, nullptr)) return qnameLocalPart(*base);
  }
  return {};
}

Identifier collectionSubType(xercesc::DOMElement& declaration, const xercesc::DOMXPathNSResolver* resolver) {
  const auto itemType =
      firstText(declaration, u"./xs:complexType/xs:complexContent/*[@base]/*/xs:element/@type", resolver);
  return itemType ? stringToIdentifier(qnameLocalPart(*itemType).c_str()) : Identifier::Unknown;
}

void referenceKind(const WideString& name, DeclaredType& type) {
  for (const ReferenceKind& kind : referenceKinds) {
    if (name == kind.name) type = kind.type;
  }
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
