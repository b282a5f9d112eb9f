#include "text/ElementText.h"

#include "analysis/DictionaryIndex.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>
#include <Types/Identifiers.h>

namespace MXF::Tessel::Tool {

using MetaMetadata::Dictionary;
using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;
using MetaMetadata::PropertyMap;
using MetaMetadata::Visitors::GetMetaElementVisitor;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

std::u32string nameOfType(Types::Identifiers::Identifier identifier) {
  return printable(Types::Identifiers::identifierToString(identifier));
}

/// The element as one of its classes or facets, or null when it is none of that.
template <class Facet>
const Facet* as(const MetaElement& element) {
  GetMetaElementVisitor<Facet> visitor;
  element.accept(visitor);
  return visitor.get();
}

std::u32string targetName(const KLV::Key& key, const Dictionary& dictionary) {
  const MetaMetadataSet* set = dictionary.findMetaMetadataSet(key);
  return set != nullptr ? nameText(*set) : printable(key.toString(Types::StringRepresentationEncodingType::DottedHex));
}

}  // namespace

std::u32string propertyText(const PropertyMap& map, const wchar_t* key) {
  const Templates::WideString* property = findProperty(map, key);
  return property == nullptr ? std::u32string() : printable(*property);
}

bool isAbstract(const MetaMetadataSet& set) {
  return propertyText(set, PropertyKeys::isAbstract) == U"true";
}

std::u32string nameText(const PropertyMap& map) {
  return propertyText(map, PropertyKeys::name);
}

std::u32string dataTypeText(const MetaElement& element) {
  std::u32string text = nameOfType(element.dataType());
  if (const auto* collection = as<MetaMetadata::MetaCollectionElement>(element)) {
    text += U" of " + nameOfType(collection->dataSubType());
  }
  return text;
}

std::u32string typeText(const MetaElement& element, const Dictionary& dictionary) {
  std::u32string text = dataTypeText(element);
  if (const auto* reference = as<MetaMetadata::MetaReferenceHolder>(element)) {
    const char32_t* separator = U" to ";
    for (const KLV::Key& key : reference->allowedMetadataSets()) {
      text += separator + targetName(key, dictionary);
      separator = U", ";
    }
  }
  return text;
}

std::vector<std::u32string> noteTexts(const PropertyMap& map) {
  std::vector<std::u32string> notes;
  const std::u32string documentation = withoutExtraBlanks(propertyText(map, PropertyKeys::documentation));
  if (!documentation.empty()) notes.push_back(documentation);
  const std::u32string length = withoutExtraBlanks(propertyText(map, PropertyKeys::lengthDescription));
  if (!length.empty()) notes.push_back(U"Length: " + length);
  return notes;
}

}  // namespace MXF::Tessel::Tool
