// The property declarations of a group along its chain of base types. Entry point: collectPropertyDeclarations().

#include "TypeResolution.h"

#include "DeclarationOrigins.h"
#include "GroupKeys.h"
#include "LabelDesignator.h"
#include "Names.h"
#include "SchemaImports.h"
#include "SourceNames.h"

#include <Exceptions/Exceptions.h>

#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

using Exceptions::SchemeDataMissingException;
using Templates::WideString;
using xercesc::DOMDocument;
using xercesc::DOMElement;

namespace {

/// One type of a chain, and where its base type is declared.
struct ChainLink {
  WideString typeName;
  DOMElement* complexType;
  WideString baseName;  // empty for the root
  DOMDocument* baseDocument = nullptr;
};
using Chain = Templates::vector<ChainLink>;

DOMElement& requireComplexType(XSDLoaderImplData& data, DOMDocument& document, const WideString& typeName) {
  DOMElement* complexType = findComplexType(data, document, typeName);
  if (complexType == nullptr) {
    throw SchemeDataMissingException((L"The " + typeName + L" declaration was not found").c_str(),
                                     SourceNames::loaderImpl, __LINE__);
  }
  return *complexType;
}

DOMDocument& requireBaseDocument(XSDLoaderImplData& data, const ChainLink& link) {
  DOMDocument* document = findTypeDocument(data, link.baseName, *link.complexType->getOwnerDocument());
  if (document == nullptr) {
    const WideString message = L"Type " + link.baseName + L", base type for " + link.typeName + L", was not found";
    throw SchemeDataMissingException(message.c_str(), SourceNames::loaderImpl, __LINE__);
  }
  return *document;
}

/// The types from the given one up to the root. A loop, not a recursion: a schema decides how long the chain is.
Chain walkToRoot(XSDLoaderImplData& data, DOMDocument& document, const WideString& typeName, KnownTypes& known) {
  Chain chain;
  Templates::set<const DOMElement*> met;
  WideString name = typeName;
  DOMDocument* declaringDocument = &document;
  while (true) {
    data.budget->takeTypeLookups(1);
    ChainLink link{name, &requireComplexType(data, *declaringDocument, name), {}};
    if (!met.insert(link.complexType).second) {
      workingOn(data, *link.complexType, [&] {
        throw SchemeDataMissingException((L"Type " + name + L" is its own base type").c_str(), SourceNames::loaderImpl,
                                         __LINE__);
      });
    }
    link.baseName = known.baseNames.of(
        *link.complexType, nullptr, [&] { return evaluateString(*link.complexType, u"./*/*/@base", data.nsResolver); });
    if (!link.baseName.empty()) {
      workingOn(data, *link.complexType, [&] { link.baseDocument = &requireBaseDocument(data, link); });
    }
    chain.push_back(link);
    if (link.baseName.empty()) return chain;
    name = link.baseName;
    declaringDocument = link.baseDocument;
  }
}

DOMElement* findElementOfType(XSDLoaderImplData& data, DOMDocument& document, const WideString& type) {
  if (const SchemaIndex* index = data.schemaIndexes.find(document, *data.nsResolver)) {
    return index->elementOfType(type);
  }
  const WideString query = L"/xs:schema/xs:element[@type=" + queryLiteral(type) + L"]";
  return dynamic_cast<DOMElement*>(firstNode(document, query, data.nsResolver));
}

/// Key of the group declared with the base type, whose name must be spelled there as it is here.
WideString baseGroupKeyText(XSDLoaderImplData& data, const ChainLink& link, KnownTypes& known) {
  DOMElement* group = findElementOfType(data, *link.baseDocument, link.baseName);
  if (group != nullptr) {
    const WideString& key = known.baseGroupKeys.of(*group, data.schemaNamespace, [&] {
      const auto groupKey = workingOn(data, *group, [&] { return readGroupKey(data, *group); });
      return groupKey ? groupKey->toString(textForm) : WideString();
    });
    if (!key.empty()) return key;
  }
  if (!data.withAbstractGroups) return {};
  const WideString message =
      L"Definition of type " + link.baseName + L", base type for " + link.typeName + L", was not found";
  throw SchemeDataMissingException(message.c_str(), SourceNames::loaderImpl, __LINE__);
}

Elements ownPropertyDeclarations(const XSDLoaderImplData& data, DOMElement& complexType) {
  Elements declarations;
  selectElements(complexType, data.queries.groupElementProperties->utf16(), data.nsResolver, declarations);
  selectElements(complexType, data.queries.groupAttributeProperties->utf16(), data.nsResolver, declarations);
  return declarations;
}

}  // namespace

TypeProperties collectPropertyDeclarations(XSDLoaderImplData& data, DOMDocument& document, const WideString& typeName,
                                           KnownTypes& known) {
  const Chain chain = walkToRoot(data, document, typeName, known);
  TypeProperties properties;
  // Every link's base group is looked up, though only the last one counts: a fault in any of them is reported.
  for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
    if (!link->baseName.empty()) properties.baseGroupKey = baseGroupKeyText(data, *link, known);
    DOMElement& type = *link->complexType;
    const Elements& own =
        known.ownDeclarations.of(type, data.schemaNamespace, [&] { return ownPropertyDeclarations(data, type); });
    properties.declarations.insert(properties.declarations.end(), own.begin(), own.end());
  }
  return properties;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
