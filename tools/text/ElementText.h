#pragma once

#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/MetaElement.h>
#include <MetaMetadata/MetaMetadataSet.h>
#include <MetaMetadata/PropertyMap.h>

#include <string>
#include <vector>

/// What the tables for people say about one element or set. All texts are printable.
namespace MXF::Tessel::Tool {

/// The value of a property, or the empty text when there is none.
std::u32string propertyText(const MetaMetadata::PropertyMap& map, const wchar_t* key);

/// Whether the set is made of an abstract group.
bool isAbstract(const MetaMetadata::MetaMetadataSet& set);

/// The registry name.
std::u32string nameText(const MetaMetadata::PropertyMap& map);

/// The data type by its name, with the items' type: "Batch of StrongReference".
std::u32string dataTypeText(const MetaMetadata::MetaElement& element);

/// The same, and for references the names of the sets that they may point at:
/// "Batch of StrongReference to Track". A set that the dictionary does not hold is named by its key.
std::u32string typeText(const MetaMetadata::MetaElement& element, const MetaMetadata::Dictionary& dictionary);

/// The documentation and the length description, each as a paragraph, as far as they were loaded.
std::vector<std::u32string> noteTexts(const MetaMetadata::PropertyMap& map);

}  // namespace MXF::Tessel::Tool
