#include "loading/DeclaringTypes.h"

#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::Tool {

using Templates::WideString;
using xercesc::DOMElement;

namespace {

template <class Key, class Value>
std::optional<Value> valueOf(const std::map<Key, Value>& values, const Key& key) {
  const auto found = values.find(key);
  return found == values.end() ? std::nullopt : std::optional<Value>(found->second);
}

}  // namespace

const DeclaringTypes::Schema& DeclaringTypes::schemaAt(const WideString& path) {
  const auto [schema, isNew] = schemas_.try_emplace(path);
  if (!isNew) return schema->second;
  lookInto(path, [&found = schema->second](const xercesc::DOMDocument& document) {
    const DOMElement& root = *document.getDocumentElement();
    const WideString uri = XMLUtils::toWstring(root.getAttribute(u"targetNamespace"));
    forEachChild(root, [&](const DOMElement& declaration) {
      if (isNamed(declaration, u"element")) {
        const Name type = nameIn(declaration, u"type");
        found.ofGroups.emplace(declarationPositionOf(declaration), type);
        found.withGroups.insert(type);
      }
      if (!isNamed(declaration, u"complexType")) return;
      const Name name{uri, XMLUtils::toWstring(declaration.getAttribute(u"name"))};
      forEachWithin(declaration, [&](const DOMElement& inner) {
        if (isNamed(inner, u"element") || isNamed(inner, u"attribute"))
          found.ofProperties.emplace(declarationPositionOf(inner), name);
      });
    });
  });
  return schema->second;
}

std::optional<ExtendedType> DeclaringTypes::extendedType(const MetaMetadata::MetaMetadataSet& set,
                                                         const MetaMetadata::MetaAttribute& attribute) {
  if (!set.origin().isKnown() || !attribute.origin().isKnown()) return std::nullopt;
  const Utils::SourceLocation& group = set.origin();
  const Utils::SourceLocation& property = attribute.origin();
  const auto own = valueOf(schemaAt(group.path()).ofGroups, {group.line(), group.column()});
  const auto declaring = valueOf(schemaAt(property.path()).ofProperties, {property.line(), property.column()});
  if (!own || !declaring || *own == *declaring) return std::nullopt;
  return ExtendedType{declaring->second, schemaAt(property.path()).withGroups.count(*declaring) > 0};
}

}  // namespace MXF::Tessel::Tool
