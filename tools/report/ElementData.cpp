#include "report/ElementData.h"

#include "analysis/OwnUses.h"
#include "analysis/PendingReferences.h"
#include "report/Links.h"
#include "text/AttributeText.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaElement;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

template <class Facet>
bool isA(const MetaElement& element) {
  MetaMetadata::Visitors::GetMetaElementVisitor<Facet> visitor;
  element.accept(visitor);
  return visitor.get() != nullptr;
}

TemplateData pendingData(const MetaElement& element) {
  TemplateList items;
  for (const PendingReference& reference : pendingReferences(element)) {
    TemplateData item;
    item["setName"] = templateText(printable(reference.setName));
    items.push_back(std::move(item));
  }
  return itemsOrNothing(items);
}

TemplateData usesData(const DictionaryIndex& index, const MetaElement& element) {
  TemplateList items;
  for (const OwnUse& use : ownUsesOf(index, element)) {
    TemplateData item;
    item["set"] = linkTo(*use.set);
    item["tag"] = textOrNothing(tagText(*use.attribute));
    item["status"] = templateText(statusText(*use.attribute));
    item["value"] = textOrNothing(distinguishedText(*use.attribute));
    item["heirs"] = linksTo(use.heirs);
    items.push_back(std::move(item));
  }
  return itemsOrNothing(items);
}

std::u32string tagsText(const DictionaryIndex& index, const MetaElement& element) {
  std::u32string text;
  for (const Types::LocalTag& tag : index.dictionary().localTagsOf(element.universalLabel())) {
    text += (text.empty() ? U"" : U", ") + printable(tag.toString(textForm));
  }
  return text;
}

}  // namespace

std::u32string elementKind(const MetaElement& element) {
  const bool isReference = isA<MetaMetadata::MetaReferenceHolder>(element);
  if (isA<MetaMetadata::MetaCollectionElement>(element)) return isReference ? U"List of references" : U"List of values";
  return isReference ? U"Reference" : U"Value";
}

TemplateData typeData(const DictionaryIndex& index, const MetaElement& element) {
  TemplateData data;
  data["type"] = templateText(dataTypeText(element));
  data["targets"] = linksTo(index.targetsOf(element));
  data["pending"] = pendingData(element);
  return data;
}

TemplateData elementData(const DictionaryIndex& index, const MetaElement& element) {
  TemplateData data = typeData(index, element);
  data["anchor"] = templateText(anchorOf(element));
  data["name"] = templateText(nameText(element));
  data["label"] = templateText(printable(element.universalLabel().toString(textForm)));
  data["kind"] = templateText(elementKind(element));
  data["tags"] = textOrNothing(tagsText(index, element));
  data["xmlName"] = textOrNothing(propertyText(element, PropertyKeys::xmlTagName));
  data["xmlItemName"] = textOrNothing(propertyText(element, PropertyKeys::xmlChildTagName));
  data["namespace"] = textOrNothing(propertyText(element, PropertyKeys::xmlNamespaceURI));
  data["length"] = textOrNothing(withoutExtraBlanks(propertyText(element, PropertyKeys::lengthDescription)));
  data["documentation"] = textOrNothing(withoutExtraBlanks(propertyText(element, PropertyKeys::documentation)));
  data["origin"] = originOf(element);
  data["uses"] = usesData(index, element);
  return data;
}

}  // namespace MXF::Tessel::Tool
