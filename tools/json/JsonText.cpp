// Writes JSON. The library that holds the values writes all of them but strings with lone surrogates, on which it
// throws; so the strings travel in the form of encode(), and are cut at what it does not escape and put together again
// here.

#include "json/JsonText.h"

#include "text/Unicode.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>

namespace MXF::Tessel::Tool {

namespace {

/// Lone surrogates, which UTF-8 cannot express, and what a terminal would act on, or show in another order. The library
/// escapes the controls before them itself.
bool isEscaped(char32_t codePoint) {
  return codePoint >= 0x7F && codePoint <= 0xFFFF && !isPrintable(codePoint);
}

/// Position of the first character that is written as an escape, or the text's size.
std::size_t findEscaped(std::string_view text) {
  std::size_t position = 0;
  while (position < text.size()) {
    const auto [codePoint, size] = firstCharacter(text.substr(position));
    if (size > 0 && isEscaped(codePoint)) break;
    position += std::max<std::size_t>(size, 1);
  }
  return position;
}

std::string escapeOf(char32_t codePoint) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string escape = "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) escape += digits[codePoint >> shift & 0xFU];
  return escape;
}

std::string quotedEncoded(std::string_view text) {
  std::string result = "\"";
  while (!text.empty()) {
    const std::string_view plain = text.substr(0, findEscaped(text));
    const std::string written = Json(plain).dump(-1, ' ', false, Json::error_handler_t::replace);
    result.append(written, 1, written.size() - 2);
    text.remove_prefix(plain.size());
    if (text.empty()) break;
    const Character escaped = firstCharacter(text);
    result += escapeOf(escaped.codePoint);
    text.remove_prefix(escaped.size);
  }
  return result + '"';
}

void append(std::string& document, const Json& value, std::size_t indent);

void appendMembers(std::string& document, const Json& container, std::size_t indent) {
  const std::string lineStart = '\n' + std::string(indent + 2, ' ');
  const char* separator = "";
  for (const auto& member : container.items()) {
    document += separator + lineStart;
    if (container.is_object()) document += quotedEncoded(member.key()) + ": ";
    append(document, member.value(), indent + 2);
    separator = ",";
  }
  document += '\n' + std::string(indent, ' ');
}

void append(std::string& document, const Json& value, std::size_t indent) {
  if (value.is_string()) {
    document += quotedEncoded(value.get_ref<const std::string&>());
  } else if (!value.is_structured() || value.empty()) {
    document += value.dump();
  } else {
    document += value.is_object() ? '{' : '[';
    appendMembers(document, value, indent);
    document += value.is_object() ? '}' : ']';
  }
}

}  // namespace

Json jsonString(const Templates::WideString& text) {
  return encode(codePoints(text));
}

std::string writeJson(const Json& value) {
  std::string document;
  append(document, value, 0);
  return document + '\n';
}

std::string quoted(const Templates::WideString& text) {
  return quotedEncoded(encode(codePoints(text)));
}

}  // namespace MXF::Tessel::Tool
