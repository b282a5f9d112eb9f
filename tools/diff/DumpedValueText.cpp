#include "diff/DumpedValueText.h"

#include "text/Unicode.h"

#include <Types/Identifiers.h>

#include <nlohmann/json.hpp>

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

std::u32string itemsText(const Json& items) {
  std::u32string text;
  for (const Json& item : items) text += (text.empty() ? U"" : U", ") + dumpedValueText(item);
  return U'{' + text + U'}';
}

bool hasText(const Json& object, const char* member) {
  return object.contains(member) && object.at(member).is_string();
}

/// What is of no known form is shown as JSON, without its line breaks.
std::u32string asJson(const Json& value) {
  std::string text = writeJson(value);
  text.pop_back();
  return printable(text);
}

/// Whether the value is a text, and not the digits of an identifier.
bool isTextType(const Json& value) {
  using Types::Identifiers::Identifier;
  if (!value.contains("dataType") || !value.at("dataType").is_number_unsigned()) return false;
  const auto type = static_cast<Identifier>(value.at("dataType").get<int>());
  return type == Identifier::ISO7String || type == Identifier::UTF16 || type == Identifier::UTF16String;
}

std::u32string objectText(const Json& object) {
  if (hasText(object, "name") && hasText(object, "namespace")) {
    return printable(object.at("name").get<std::string>()) + U" of namespace " +
           printable(object.at("namespace").get<std::string>());
  }
  if (hasText(object, "name")) return printable(object.at("name").get<std::string>());
  if (hasText(object, "key")) return printable(object.at("key").get<std::string>());
  if (hasText(object, "label")) return printable(object.at("label").get<std::string>());
  if (hasText(object, "value") && !isTextType(object)) return printable(object.at("value").get<std::string>());
  if (object.contains("value")) return asJson(object.at("value"));
  if (object.contains("items")) return itemsText(object.at("items"));
  if (object.contains("components")) return itemsText(object.at("components"));
  if (object.contains("numerator") && object.contains("denominator")) {
    return asJson(object.at("numerator")) + U'/' + asJson(object.at("denominator"));
  }
  if (object.contains("code") && object.contains("depth")) {
    return asJson(object.at("code")) + U' ' + asJson(object.at("depth"));
  }
  return asJson(object);
}

}  // namespace

std::u32string dumpedValueText(const Json& value) {
  if (value.is_null()) return U"none";
  if (value.is_string()) return printable(value.get_ref<const std::string&>());
  return value.is_object() ? objectText(value) : asJson(value);
}

}  // namespace MXF::Tessel::Tool
