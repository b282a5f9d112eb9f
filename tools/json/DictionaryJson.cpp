// The dictionary as a JSON document. Entry point: dictionaryJson(); all else is local. The order of the members is part
// of the format.

#include "json/DictionaryJson.h"

#include "json/JsonText.h"
#include "json/ValueJson.h"
#include "text/IdentifierForm.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/MetaElementVisitor.h>
#include <Utils/TextConversion.h>

#include <nlohmann/json.hpp>

#include <utility>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaAttribute;
using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;
using MetaMetadata::PropertyMap;

namespace {

/// Text form of a label, key or local tag.
template <class Identifier>
Json textOf(const Identifier& identifier) {
  return jsonString(identifier.toString(textForm));
}

Json propertiesJson(const PropertyMap& map) {
  Json properties = Json::object();
  for (const auto& [key, value] : map.properties()) {
    properties[jsonString(key).get<std::string>()] = jsonString(value);
  }
  return properties;
}

/// What decides on the content beside the schemas.
Json optionsJson(const LoadRequest& request) {
  return {{"abstractGroups", request.abstractGroups},
          {"documentation", request.documentation},
          {"lengthDescription", request.lengthDescription}};
}

Json errorJson(const Failure& failure) {
  const Utils::SourceLocation& place = failure.place;
  return {{"class", failure.className},
          {"code", failure.code ? Json(*failure.code) : Json()},
          {"message", jsonString(failure.message)},
          {"path", place.isKnown() ? jsonString(place.path()) : Json()},
          {"line", place.isKnown() ? Json(place.line()) : Json()},
          {"column", place.isKnown() ? Json(place.column()) : Json()}};
}

Json loadsJson(const std::vector<LoadRecord>& records) {
  Json loads = Json::array();
  for (const LoadRecord& record : records) {
    loads.push_back({{"kind", fileKindName(record.file.kind)},
                     {"path", jsonString(Utils::stringToWstring(record.file.path.c_str()))},
                     {"error", record.failure ? errorJson(*record.failure) : Json()}});
  }
  return loads;
}

/// What differs between the four classes of elements.
class ElementClass final : public MetaMetadata::Visitors::MetaElementVisitor {
 public:
  explicit ElementClass(const MetaElement& element) { element.accept(*this); }

  const char* name = "";
  Json dataSubType;
  Json allowedSets;

  void visit(const MetaMetadata::MetaSimpleElement& /*element*/) override { name = "MetaSimpleElement"; }
  void visit(const MetaMetadata::MetaCollection& element) override {
    name = "MetaCollection";
    visit(static_cast<const MetaMetadata::MetaCollectionElement&>(element));
  }
  void visit(const MetaMetadata::MetaReferenceElement& element) override {
    name = "MetaReferenceElement";
    visit(static_cast<const MetaMetadata::MetaReferenceHolder&>(element));
  }
  void visit(const MetaMetadata::MetaReferenceCollection& element) override {
    name = "MetaReferenceCollection";
    visit(static_cast<const MetaMetadata::MetaCollectionElement&>(element));
    visit(static_cast<const MetaMetadata::MetaReferenceHolder&>(element));
  }
  void visit(const MetaMetadata::MetaCollectionElement& element) override {
    dataSubType = static_cast<int>(element.dataSubType());
  }
  void visit(const MetaMetadata::MetaReferenceHolder& facet) override {
    allowedSets = Json::array();
    for (const KLV::Key& key : facet.allowedMetadataSets()) allowedSets.push_back(textOf(key));
  }
  void visit(const MetaMetadata::MetaValueHolder& /*facet*/) override {}
};

Json elementJson(const MetaElement& element) {
  ElementClass elementClass(element);
  return {{"label", textOf(element.universalLabel())},          {"class", elementClass.name},
          {"dataType", static_cast<int>(element.dataType())},   {"dataSubType", std::move(elementClass.dataSubType)},
          {"allowedSets", std::move(elementClass.allowedSets)}, {"properties", propertiesJson(element)}};
}

Json attributeJson(const MetaAttribute& attribute) {
  const auto& statusWords = MetaMetadata::AttributeRequiredStatus::instance();
  const Types::LocalTag* tag = attribute.localTag();
  const Types::BaseType* value = attribute.distinguishedValue();
  return {{"element", textOf(attribute.metaElement().universalLabel())},
          {"requiredStatus", jsonString(statusWords.toString(attribute.requiredStatus()))},
          {"localTag", tag == nullptr ? Json() : textOf(*tag)},
          {"distinguishedValue", value == nullptr ? Json() : valueJson(*value)},
          {"properties", propertiesJson(attribute)}};
}

Json setJson(const MetaMetadataSet& set) {
  Json attributes = Json::array();
  for (const MetaMetadataSet::Attribute& attribute : set.metaAttributes())
    attributes.push_back(attributeJson(*attribute));
  return {{"key", textOf(set.key())}, {"attributes", std::move(attributes)}, {"properties", propertiesJson(set)}};
}

}  // namespace

std::string dictionaryJson(const LoadRequest& request, const LoadOutcome& outcome) {
  const MetaMetadata::Dictionary& dictionary = outcome.dictionary;
  Json elements = Json::array();
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    elements.push_back(elementJson(*entry->second));
  }
  Json sets = Json::array();
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    sets.push_back(setJson(entry->second));
  }
  Json localTags = Json::array();
  for (const auto& [tag, label] : dictionary.localTags()) {
    localTags.push_back({{"tag", textOf(tag)}, {"label", textOf(label)}});
  }
  return writeJson({{"targetNamespace", jsonString(outcome.targetNamespace)},
                    {"options", optionsJson(request)},
                    {"loads", loadsJson(outcome.loads)},
                    {"elements", std::move(elements)},
                    {"sets", std::move(sets)},
                    {"localTags", std::move(localTags)}});
}

}  // namespace MXF::Tessel::Tool
