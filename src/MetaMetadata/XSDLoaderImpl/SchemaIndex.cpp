// Indexes of the top-level declarations, where they give what a query would give.

#include "SchemaIndex.h"

#include <XMLUtils/AttributeTypes.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/util/XMLString.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;
using xercesc::DOMDocument;
using xercesc::DOMElement;

namespace {

const SchemaIndex::Locations noLocations;
const SchemaIndex emptyIndex;

bool isNamed(const DOMElement& element, const XMLCh* namespaceUri, const XMLCh* localName) {
  return xercesc::XMLString::equals(element.getLocalName(), localName) &&
         xercesc::XMLString::equals(element.getNamespaceURI(), namespaceUri);
}

/// The text that a query compares with: XPath reads a string literal as it stands, but for line ends.
WideString asInQuery(const WideString& text) {
  WideString result;
  for (auto c = text.begin(); c != text.end(); ++c) {
    if (*c != L'\r') result += *c;
    const bool endsLine = *c == L'\r' && (c + 1 == text.end() || *(c + 1) != L'\n');
    if (endsLine) result += L'\n';
  }
  return result;
}

}  // namespace

SchemaIndex::SchemaIndex(const DOMElement& root) {
  const XMLCh* schemaNamespace = root.getNamespaceURI();
  // The first declaration in document order keeps the text.
  const auto add = [this](ByText& index, DOMElement& declaration, const XMLCh* attributeName) {
    if (const auto text = textOf(declaration, attributeName)) index.emplace(*text, &declaration);
  };
  for (DOMElement* child = root.getFirstElementChild(); child != nullptr; child = child->getNextElementSibling()) {
    if (isNamed(*child, schemaNamespace, u"complexType")) add(complexTypesByName_, *child, u"name");
    if (isNamed(*child, schemaNamespace, u"element")) add(elementsByType_, *child, u"type");
    if (!isNamed(*child, schemaNamespace, u"import")) continue;
    const auto namespaceUri = textOf(*child, u"namespace");
    const auto location = textOf(*child, u"schemaLocation");
    if (namespaceUri && location) locationsByNamespace_[*namespaceUri].insert(*location);
  }
}

std::optional<WideString> SchemaIndex::textOf(const DOMElement& declaration, const XMLCh* attributeName) {
  const xercesc::DOMAttr* attribute = declaration.getAttributeNodeNS(nullptr, attributeName);
  if (attribute == nullptr) return std::nullopt;
  if (XMLUtils::hasType(*attribute)) isReliable_ = false;
  return XMLUtils::toWstring(attribute->getValue());
}

DOMElement* SchemaIndex::complexTypeNamed(const WideString& name) const {
  const auto entry = complexTypesByName_.find(asInQuery(name));
  return entry == complexTypesByName_.end() ? nullptr : entry->second;
}

DOMElement* SchemaIndex::elementOfType(const WideString& type) const {
  const auto entry = elementsByType_.find(asInQuery(type));
  return entry == elementsByType_.end() ? nullptr : entry->second;
}

const SchemaIndex::Locations& SchemaIndex::importLocations(const WideString& namespaceUri) const {
  const auto entry = locationsByNamespace_.find(asInQuery(namespaceUri));
  return entry == locationsByNamespace_.end() ? noLocations : entry->second;
}

const SchemaIndex* SchemaIndexes::find(const DOMDocument& document, const xercesc::DOMXPathNSResolver& resolver) {
  const XMLCh* schemaNamespace = resolver.lookupNamespaceURI(u"xs");
  if (schemaNamespace == nullptr || *schemaNamespace == u'\0') return nullptr;
  const DOMElement* root = document.getDocumentElement();
  if (root == nullptr || !isNamed(*root, schemaNamespace, u"schema")) return &emptyIndex;
  auto& index = indexes_[&document];
  if (!index) index = std::make_unique<const SchemaIndex>(*root);
  return index->isReliable() ? index.get() : nullptr;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
