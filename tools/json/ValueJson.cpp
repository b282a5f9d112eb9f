#include "json/ValueJson.h"

#include "text/IdentifierForm.h"

#include <Types/Types.h>
#include <Utils/TextConversion.h>

#include <nlohmann/json.hpp>

#include <utility>

namespace MXF::Tessel::Tool {

using Types::Identifiers::Identifier;

namespace {

class ValueToJson final : public Types::Visitors::Visitor {
 public:
  /// @param json  becomes the value that is visited.
  explicit ValueToJson(Json& json) : json_(json) {}

  void visit(const Types::Array& value) override { setItems(Identifier::Array, value); }
  void visit(const Types::Batch& value) override { setItems(Identifier::Batch, value); }
  void visit(const Types::Boolean& value) override { set(Identifier::Boolean, value.value()); }
  void visit(const Types::Int8& value) override { set(Identifier::Int8, value.value()); }
  void visit(const Types::Int16& value) override { set(Identifier::Int16, value.value()); }
  void visit(const Types::Int32& value) override { set(Identifier::Int32, value.value()); }
  void visit(const Types::Int64& value) override { set(Identifier::Int64, value.value()); }
  void visit(const Types::UInt8& value) override { set(Identifier::UInt8, value.value()); }
  void visit(const Types::UInt16& value) override { set(Identifier::UInt16, value.value()); }
  void visit(const Types::UInt32& value) override { set(Identifier::UInt32, value.value()); }
  void visit(const Types::UInt64& value) override { set(Identifier::UInt64, value.value()); }
  void visit(const Types::Length& value) override { set(Identifier::Length, value.value()); }
  void visit(const Types::Position& value) override { set(Identifier::Position, value.value()); }
  void visit(const Types::ISO7String& value) override {
    set(Identifier::ISO7String, jsonString(Utils::stringToWstring(value.value())));
  }
  void visit(const Types::UTF16& value) override {
    set(Identifier::UTF16, jsonString(Templates::WideString(1, value.value())));
  }
  void visit(const Types::UTF16String& value) override { set(Identifier::UTF16String, jsonString(value.value())); }
  void visit(const Types::Rational& value) override {
    start(Identifier::Rational);
    json_["numerator"] = value.numerator();
    json_["denominator"] = value.denominator();
  }
  void visit(const Types::RGBALayout& value) override {
    start(Identifier::RGBALayout);
    Json components = Json::array();
    for (unsigned int i = 0; i < Types::RGBALayout::componentCount; ++i) {
      const Types::RGBALayout::RGBAComponent component = value.get(i);
      components.push_back({{"code", component.code}, {"depth", component.depth}});
    }
    json_["components"] = std::move(components);
  }
  void visit(const Types::LocalTag& value) override { setText(Identifier::LocalTag, value); }
  void visit(const Types::UniversalLabel& value) override { setText(Identifier::UniversalLabel, value); }
  void visit(const Types::UUID& value) override { setText(Identifier::UUID, value); }
  void visit(const Types::UMID32& value) override { setText(Identifier::UMID32, value); }
  void visit(const Types::UMID64& value) override { setText(Identifier::UMID64, value); }

 private:
  void start(Identifier type) { json_ = {{"dataType", static_cast<int>(type)}}; }

  void set(Identifier type, Json value) {
    start(type);
    json_["value"] = std::move(value);
  }

  template <class Value>
  void setText(Identifier type, const Value& value) {
    set(type, jsonString(value.toString(textForm)));
  }

  void setItems(Identifier type, const Types::Collection& collection) {
    Json items = Json::array();
    for (std::size_t i = 0; i < collection.size(); ++i) items.push_back(valueJson(collection.at(i)));
    start(type);
    json_["elementSize"] = collection.elementSize();
    json_["items"] = std::move(items);
  }

  Json& json_;
};

}  // namespace

Json valueJson(const Types::BaseType& value) {
  Json json;
  ValueToJson visitor(json);
  value.accept(visitor);
  return json;
}

}  // namespace MXF::Tessel::Tool
