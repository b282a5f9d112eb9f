// Writes JSON. The library that holds the values writes all of them but strings with lone surrogates, on which it
// throws; so the strings travel in the form of encode(), and are cut at what it does not escape and put together again
// here.

#include "json/JsonText.h"

#include "text/Unicode.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace MXF::Tessel::Tool {

namespace {

/// A character of a text in the form of encode().
struct Character {
  std::size_t position;
  std::size_t size;
  unsigned codePoint;
};

/// Lone surrogates, which UTF-8 cannot express, and what a terminal would act on, or show in another order: controls that
/// JSON need not escape, embeddings, overrides and isolates of the bidirectional algorithm.
bool isEscaped(unsigned codePoint) {
  return isSurrogate(codePoint) || (codePoint >= 0x7F && codePoint <= 0x9F) ||
         (codePoint >= 0x2028 && codePoint <= 0x202E) || (codePoint >= 0x2066 && codePoint <= 0x2069);
}

/// The first character that is written as an escape, or an empty one at the end.
Character firstEscaped(std::string_view text) {
  const auto bits = [&](std::size_t i, unsigned mask) { return static_cast<unsigned char>(text[i]) & mask; };
  for (std::size_t i = 0; i < text.size(); ++i) {
    Character character{i, 1, bits(i, 0xFF)};
    if (text[i] == '\xC2' && i + 1 < text.size()) character = {i, 2, bits(i, 0x1F) << 6U | bits(i + 1, 0x3F)};
    if ((text[i] == '\xE2' || text[i] == '\xED') && i + 2 < text.size())
      character = {i, 3, bits(i, 0x0F) << 12U | bits(i + 1, 0x3F) << 6U | bits(i + 2, 0x3F)};
    const bool isWhole = character.size > 1 || character.codePoint < 0x80;
    if (isWhole && isEscaped(character.codePoint)) return character;
  }
  return {text.size(), 0, 0};
}

std::string escapeOf(unsigned codePoint) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string escape = "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) escape += digits[codePoint >> shift & 0xFU];
  return escape;
}

std::string quotedEncoded(std::string_view text) {
  std::string result = "\"";
  while (!text.empty()) {
    const Character escaped = firstEscaped(text);
    const std::string written =
        Json(text.substr(0, escaped.position)).dump(-1, ' ', false, Json::error_handler_t::replace);
    result.append(written, 1, written.size() - 2);
    if (escaped.size > 0) result += escapeOf(escaped.codePoint);
    text.remove_prefix(escaped.position + escaped.size);
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
