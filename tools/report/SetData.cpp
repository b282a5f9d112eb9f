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

#include <algorithm>

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

/// The attributes from one position to before another.
TemplateData attributesData(const DictionaryIndex& index, const MetaMetadataSet& set, std::size_t first,
                            std::size_t end) {
  TemplateList items;
  for (std::size_t i = first; i < end; ++i) items.push_back(attributeData(index, *set.metaAttributes()[i]));
  return itemsOrNothing(items);
}

/// The inherited attributes, in one group for each base that adds some.
TemplateData inheritedData(const DictionaryIndex& index, const MetaMetadataSet& set) {
  TemplateList groups;
  const std::size_t inherited = index.inheritedAttributes(set);
  for (std::size_t first = 0; first < inherited;) {
    const MetaMetadataSet& base = index.declaringSet(set, first);
    const std::size_t end = std::clamp(base.metaAttributes().size(), first + 1, inherited);
    TemplateData group;
    group["base"] = linkTo(base);
    group["attributes"] = attributesData(index, set, first, end);
    groups.push_back(std::move(group));
    first = end;
  }
  if (groups.empty()) return {false};
  TemplateData data;
  data["total"] = templateNumber(inherited);
  data["groups"] = TemplateData(groups);
  return data;
}

/// The elements that may refer to the set, or to one of its bases and so to the set, too.
TemplateData referencesData(const DictionaryIndex& index, const MetaMetadataSet& set) {
  TemplateList items;
  DictionaryIndex::Sets targets = index.basesOf(set);
  targets.insert(targets.begin(), &set);
  for (const MetaMetadataSet* target : targets) {
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

/// The key of a base that is not loaded, the set's own or one of its bases'.
TemplateData missingBase(const DictionaryIndex& index, const MetaMetadataSet& set) {
  const DictionaryIndex::Sets bases = index.basesOf(set);
  const auto missing = index.missingBaseOf(bases.empty() ? set : *bases.back());
  return missing ? templateText(printable(*missing)) : TemplateData(false);
}

}  // namespace

TemplateData setData(const DictionaryIndex& index, const MetaMetadataSet& set) {
  TemplateData data = linkTo(set);
  data["key"] = templateText(printable(set.key().toString(textForm)));
  data["xmlName"] = textOrNothing(propertyText(set, PropertyKeys::xmlTagName));
  data["namespace"] = textOrNothing(propertyText(set, PropertyKeys::xmlNamespaceURI));
  data["documentation"] = textOrNothing(withoutExtraBlanks(propertyText(set, PropertyKeys::documentation)));
  data["origin"] = originOf(set);
  data["bases"] = linksTo(index.basesOf(set));
  data["missingBase"] = missingBase(index, set);
  data["derived"] = linksTo(index.derivedFrom(set));
  data["own"] = attributesData(index, set, index.inheritedAttributes(set), set.metaAttributes().size());
  data["inherited"] = inheritedData(index, set);
  data["references"] = referencesData(index, set);
  return data;
}

}  // namespace MXF::Tessel::Tool
