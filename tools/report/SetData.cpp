// What the page tells of one set. Entry point: setData(); all else is local.

#include "report/SetData.h"

#include "analysis/OwnUses.h"
#include "report/ElementData.h"
#include "report/Links.h"
#include "text/AttributeText.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaAttribute;
using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

TemplateData attributeData(const DictionaryIndex& index, const MetaAttribute& attribute) {
  TemplateData data = typeData(index, attribute.metaElement());
  data["element"] = linkTo(attribute.metaElement());
  data["tag"] = textOrNothing(tagText(attribute));
  data["status"] = templateText(statusText(attribute));
  data["value"] = textOrNothing(distinguishedText(attribute));
  return data;
}

/// The attributes of the set itself, which follow the inherited ones.
TemplateData ownData(const DictionaryIndex& index, const MetaMetadataSet& set,
                     const std::vector<AttributeSource>& sources) {
  TemplateList items;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (!sources[i].isInherited(set)) items.push_back(attributeData(index, *set.metaAttributes()[i]));
  }
  return itemsOrNothing(items);
}

/// A base that is no set, and whether it could be one.
TemplateData missingName(std::u32string_view text, bool isFault) {
  TemplateData data;
  data["text"] = templateText(text);
  data["isFault"] = TemplateData(isFault);
  return data;
}

/// The same of bases that are known by their types, or false when there are none.
TemplateData missingTypes(const std::vector<ExtendedType>& types) {
  std::u32string text;
  bool isFault = false;
  for (const ExtendedType& type : types) {
    text += (text.empty() ? U"" : U" < ") + printable(type.name) + printable(whyMissing(type));
    isFault = isFault || type.hasGroup;
  }
  return types.empty() ? TemplateData(false) : missingName(text, isFault);
}

/// The inherited attributes, in one group for each base that adds some, whether it is loaded or not.
TemplateData inheritedData(const DictionaryIndex& index, const MetaMetadataSet& set,
                           const std::vector<AttributeSource>& sources) {
  TemplateList groups;
  std::size_t total = 0;
  for (std::size_t i = 0; i < sources.size();) {
    const AttributeSource& source = sources[i];
    TemplateList items;
    for (; i < sources.size() && sources[i] == source; ++i) {
      items.push_back(attributeData(index, *set.metaAttributes()[i]));
    }
    if (!source.isInherited(set)) continue;
    total += items.size();
    TemplateData group;
    group["base"] = source.missingType ? TemplateData(false) : linkTo(*source.set);
    group["missingType"] = source.missingType ? missingTypes({*source.missingType}) : TemplateData(false);
    group["attributes"] = itemsOrNothing(items);
    groups.push_back(std::move(group));
  }
  if (groups.empty()) return {false};
  TemplateData data;
  data["total"] = templateNumber(total);
  data["groups"] = TemplateData(groups);
  return data;
}

/// The elements that may refer to the set, or to one of its bases and so to the set, too.
TemplateData referencesData(const DictionaryIndex& index, const MetaMetadataSet& set) {
  TemplateList items;
  for (const MetaMetadataSet* target : index.withBasesOf(set)) {
    for (const MetaElement* element : index.referencesTo(*target)) {
      TemplateData item;
      item["element"] = linkTo(*element);
      item["type"] = templateText(dataTypeText(*element));
      item["holders"] = linksTo(holdersOf(index, *element));
      item["as"] = target == &set ? TemplateData(false) : linkTo(*target);
      items.push_back(std::move(item));
    }
  }
  return itemsOrNothing(items);
}

/// Bases that are no sets, the set's own or of its bases: the key of the first one, or all by their types.
TemplateData missingBase(const DictionaryIndex& index, const MetaMetadataSet& set, AttributeSources& sources) {
  const auto missing = index.endOfBasesOf(set);
  return missing ? missingName(printable(*missing) + U" (not loaded)", true) : missingTypes(sources.missingTypes(set));
}

}  // namespace

TemplateData setData(const DictionaryIndex& index, AttributeSources& sources, const MetaMetadataSet& set) {
  const std::vector<AttributeSource> attributes = sources.of(set);
  TemplateData data = linkTo(set);
  data["key"] = templateText(printable(set.key().toString(textForm)));
  data["xmlName"] = textOrNothing(propertyText(set, PropertyKeys::xmlTagName));
  data["namespace"] = textOrNothing(propertyText(set, PropertyKeys::xmlNamespaceURI));
  data["documentation"] = textOrNothing(withoutExtraBlanks(propertyText(set, PropertyKeys::documentation)));
  data["origin"] = originOf(set);
  data["bases"] = linksTo(index.basesOf(set));
  data["missingBase"] = missingBase(index, set, sources);
  data["derived"] = linksTo(index.derivedFrom(set));
  data["own"] = ownData(index, set, attributes);
  data["inherited"] = inheritedData(index, set, attributes);
  data["references"] = referencesData(index, set);
  return data;
}

}  // namespace MXF::Tessel::Tool
