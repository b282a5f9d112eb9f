// Writes JSON. The library that holds the values writes all of them but strings with lone surrogates, on which it
// throws; so the strings travel in the form of encode(), and are cut at the surrogates and put together again here.

#include "json/JsonText.h"

#include "text/Unicode.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t encodedSurrogateSize = 3;

/// Position of the first encoded lone surrogate, or the text's size.
std::size_t findSurrogate(std::string_view text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == '\xED' && static_cast<unsigned char>(text[i + 1]) >= 0xA0) return i;
  }
  return text.size();
}

std::string escapeOf(std::string_view encodedSurrogate) {
  const auto tail = [&](std::size_t i) { return static_cast<unsigned char>(encodedSurrogate[i]) & 0x3FU; };
  constexpr std::string_view digits = "0123456789abcdef";
  const unsigned middle = tail(1);
  const unsigned last = tail(2);
  return {'\\', 'u', 'd', digits[middle >> 2U], digits[(middle & 3U) << 2U | last >> 4U], digits[last & 0xFU]};
}

std::string quotedEncoded(std::string_view text) {
  std::string result = "\"";
  while (!text.empty()) {
    const std::string_view plain = text.substr(0, findSurrogate(text));
    const std::string written = Json(plain).dump(-1, ' ', false, Json::error_handler_t::replace);
    result.append(written, 1, written.size() - 2);
    text.remove_prefix(plain.size());
    if (text.empty()) break;
    result += escapeOf(text.substr(0, encodedSurrogateSize));
    text.remove_prefix(encodedSurrogateSize);
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
