// What is known of one element or set, as JSON. Entry point: explanationJson(); all else is local. The order of the
// members is part of the format.

#include "json/ExplanationJson.h"

#include "analysis/AttributeSources.h"
#include "analysis/OwnUses.h"
#include "analysis/PendingReferences.h"
#include "json/JsonText.h"
#include "json/ValueJson.h"
#include "loading/Failure.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"

#include <MetaMetadata/AttributeRequiredStatus.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>

#include <nlohmann/json.hpp>

#include <utility>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaAttribute;
using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;
using MetaMetadata::PropertyMap;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

/// The property, or null.
Json property(const PropertyMap& map, const wchar_t* key) {
  const Templates::WideString* value = findProperty(map, key);
  return value == nullptr ? Json() : jsonString(*value);
}

Json reference(const MetaMetadataSet& set) {
  return {{"key", jsonString(set.key().toString(textForm))}, {"name", property(set, PropertyKeys::name)}};
}

Json reference(const MetaElement& element) {
  return {{"label", jsonString(element.universalLabel().toString(textForm))},
          {"name", property(element, PropertyKeys::name)}};
}

/// An array of what a function makes of each item.
template <class List, class ToJson>
Json array(const List& list, const ToJson& toJson) {
  Json items = Json::array();
  for (const auto& item : list) items.push_back(toJson(item));
  return items;
}

Json references(const DictionaryIndex::Sets& sets) {
  return array(sets, [](const MetaMetadataSet* set) { return reference(*set); });
}

Json originJson(const PropertyMap& map) {
  const Utils::SourceLocation& origin = map.origin();
  if (!origin.isKnown()) return {};
  return {{"path", jsonString(shownPath(origin.path()))}, {"line", origin.line()}, {"column", origin.column()}};
}

Json typeNameJson(Types::Identifiers::Identifier type) {
  return jsonString(Types::Identifiers::identifierToString(type));
}

Json itemTypeName(const MetaElement& element) {
  MetaMetadata::Visitors::GetMetaElementVisitor<MetaMetadata::MetaCollectionElement> visitor;
  element.accept(visitor);
  return visitor.get() == nullptr ? Json() : typeNameJson(visitor.get()->dataSubType());
}

Json pendingJson(const MetaElement& element) {
  return array(pendingReferences(element), [](const PendingReference& pending) -> Json {
    return {{"name", jsonString(pending.setName)}, {"namespace", jsonString(pending.namespaceUri)}};
  });
}

/// Adds what is known of an attribute, whether it is seen from its element or from its set.
void addAttribute(Json& json, AttributeSources& sources, const MetaMetadataSet& set, std::size_t position) {
  const MetaAttribute& attribute = *set.metaAttributes()[position];
  const auto& statusWords = MetaMetadata::AttributeRequiredStatus::instance();
  const Types::LocalTag* tag = attribute.localTag();
  const Types::BaseType* value = attribute.distinguishedValue();
  const AttributeSource source = sources.of(set, position);
  json["localTag"] = tag == nullptr ? Json() : jsonString(tag->toString(textForm));
  json["requiredStatus"] = jsonString(statusWords.toString(attribute.requiredStatus()));
  json["distinguishedValue"] = value == nullptr ? Json() : valueJson(*value);
  json["declaredAt"] = originJson(attribute);
  json["inheritedFrom"] = source.set == &set ? Json() : reference(*source.set);
  json["typeNotLoaded"] = source.missingType ? jsonString(source.missingType->name) : Json();
}

Json usesJson(const DictionaryIndex& index, AttributeSources& sources, const MetaElement& element) {
  return array(index.usesOf(element), [&](const DictionaryIndex::Use& use) {
    Json json = {{"set", reference(*use.set)}};
    addAttribute(json, sources, *use.set, use.attribute);
    return json;
  });
}

Json elementJson(const DictionaryIndex& index, AttributeSources& sources, const MetaElement& element) {
  Json json = reference(element);
  json["dataType"] = typeNameJson(element.dataType());
  json["dataSubType"] = itemTypeName(element);
  json["localTags"] = array(index.dictionary().localTagsOf(element.universalLabel()),
                            [](const Types::LocalTag& tag) { return jsonString(tag.toString(textForm)); });
  json["xmlName"] = property(element, PropertyKeys::xmlTagName);
  json["xmlItemName"] = property(element, PropertyKeys::xmlChildTagName);
  json["xmlNamespace"] = property(element, PropertyKeys::xmlNamespaceURI);
  json["length"] = property(element, PropertyKeys::lengthDescription);
  json["documentation"] = property(element, PropertyKeys::documentation);
  json["declaredAt"] = originJson(element);
  json["targets"] = references(index.targetsOf(element));
  json["undeclaredTargets"] = pendingJson(element);
  json["uses"] = usesJson(index, sources, element);
  return json;
}

Json attributesJson(AttributeSources& sources, const MetaMetadataSet& set) {
  Json attributes = Json::array();
  for (std::size_t i = 0; i < set.metaAttributes().size(); ++i) {
    const MetaElement& element = set.metaAttributes()[i]->metaElement();
    Json json = {{"element", reference(element)},
                 {"dataType", typeNameJson(element.dataType())},
                 {"dataSubType", itemTypeName(element)}};
    addAttribute(json, sources, set, i);
    attributes.push_back(std::move(json));
  }
  return attributes;
}

Json referencedByJson(const DictionaryIndex& index, const MetaMetadataSet& set) {
  Json found = Json::array();
  for (const MetaMetadataSet* target : index.withBasesOf(set)) {
    for (const MetaElement* element : index.referencesTo(*target)) {
      found.push_back({{"element", reference(*element)},
                       {"target", reference(*target)},
                       {"sets", references(holdersOf(index, *element))}});
    }
  }
  return found;
}

Json setJson(const DictionaryIndex& index, AttributeSources& sources, const MetaMetadataSet& set) {
  const DictionaryIndex::Sets bases = index.basesOf(set);
  const auto missing = index.endOfBasesOf(set);
  Json json = reference(set);
  json["abstract"] = isAbstract(set);
  json["bases"] = references(bases);
  json["missingBase"] = missing ? jsonString(*missing) : Json();
  json["derived"] = references(index.derivedFrom(set));
  json["xmlName"] = property(set, PropertyKeys::xmlTagName);
  json["xmlNamespace"] = property(set, PropertyKeys::xmlNamespaceURI);
  json["documentation"] = property(set, PropertyKeys::documentation);
  json["declaredAt"] = originJson(set);
  json["attributes"] = attributesJson(sources, set);
  json["referencedBy"] = referencedByJson(index, set);
  return json;
}

const char* nearnessName(Nearness nearness) {
  switch (nearness) {
    case Nearness::Version:
      return "version";
    case Nearness::Wildcard:
      return "wildcard";
    case Nearness::Case:
      return "case";
    case Nearness::Bytes:
      return "bytes";
    case Nearness::Pattern:
      return "pattern";
    case Nearness::Spelling:
      return "spelling";
    case Nearness::BytesPart:
    case Nearness::Part:
      break;
  }
  return "part";
}

}  // namespace

std::string explanationJson(const DictionaryIndex& index, const Templates::WideString& question,
                            const LookupResult& found) {
  Json elements = Json::array();
  Json sets = Json::array();
  AttributeSources sources(index);
  for (const Entry& entry : found.matches) {
    if (entry.element != nullptr) elements.push_back(elementJson(index, sources, *entry.element));
    if (entry.set != nullptr) sets.push_back(setJson(index, sources, *entry.set));
  }
  Json nearMisses = array(found.nearMisses, [](const NearMiss& miss) {
    Json json = miss.entry.element != nullptr ? reference(*miss.entry.element) : reference(*miss.entry.set);
    json["nearness"] = nearnessName(miss.nearness);
    return json;
  });
  return writeJson({{"question", jsonString(question)},
                    {"elements", std::move(elements)},
                    {"sets", std::move(sets)},
                    {"nearMisses", std::move(nearMisses)},
                    {"furtherNearMisses", found.furtherNearMisses}});
}

}  // namespace MXF::Tessel::Tool
