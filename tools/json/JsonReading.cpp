// Reads JSON. The library that does it refuses escapes of lone surrogates, which writeJson() writes. They are replaced by
// as many bytes that it accepts before, so that positions stay right, and made what encode() makes of them afterwards.
// Its parser is run twice, since only the first, which builds nothing, can be stopped at a bound.

#include "json/JsonReading.h"

#include "text/Unicode.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t escapeSize = 6;        // \ud83d
constexpr std::size_t memoryPerValue = 128;  // an empty array's, with what growing and freeing its container takes
/// No text has this noncharacter but by the replacement of a surrogate, which follows as a private character.
constexpr char32_t marker = 0xFFFE;
constexpr char32_t privateStart = 0xE000;
constexpr char32_t surrogateStart = 0xD800;
constexpr char32_t lowSurrogateStart = 0xDC00;

/// The code unit of an escape at a position, if there is one.
std::optional<char32_t> escapedUnit(std::string_view text, std::size_t position) {
  if (text.size() - position < escapeSize || text[position] != '\\' || text[position + 1] != 'u') return std::nullopt;
  char32_t unit = 0;
  for (const char digit : text.substr(position + 2, escapeSize - 2)) {
    const std::size_t value = std::string_view("0123456789abcdef").find(static_cast<char>(digit | 0x20));
    if (value == std::string_view::npos) return std::nullopt;
    unit = unit << 4U | static_cast<char32_t>(value);
  }
  return unit;
}

/// @return whether there were any.
bool replaceLoneSurrogates(std::string& text) {
  bool found = false;
  for (std::size_t i = text.find('\\'); i < text.size(); i = text.find('\\', i)) {
    const std::optional<char32_t> unit = escapedUnit(text, i);
    if (!unit || !isSurrogate(*unit)) {
      i += 2;
      continue;
    }
    const char32_t next = escapedUnit(text, std::min(i + escapeSize, text.size())).value_or(0);
    if (*unit < lowSurrogateStart && isSurrogate(next) && next >= lowSurrogateStart) {
      i += 2 * escapeSize;
      continue;
    }
    text.replace(i, escapeSize, encode(std::u32string{marker, *unit - surrogateStart + privateStart}));
    found = true;
  }
  return found;
}

void restoreLoneSurrogates(std::string& text) {
  const std::string encodedMarker = encode(std::u32string{marker});
  for (std::size_t i = text.find(encodedMarker); i != std::string::npos; i = text.find(encodedMarker, i + 1)) {
    const auto tail = [&](std::size_t byte) { return static_cast<unsigned char>(text[i + byte]) & 0x3FU; };
    if (text.size() - i < escapeSize) break;
    const char32_t unit = (tail(3) << 12U | tail(4) << 6U | tail(5)) & 0xFFFFU;
    const char32_t surrogate = (unit | 0xE000U) - privateStart + surrogateStart;
    text.replace(i, escapeSize, encode(std::u32string{surrogate}));
  }
}

void restoreLoneSurrogates(Json& value) {
  if (value.is_string()) restoreLoneSurrogates(value.get_ref<std::string&>());
  if (!value.is_structured()) return;
  for (Json& item : value) restoreLoneSurrogates(item);
}

JsonFault faultAt(std::string_view text, std::size_t position, const std::string& reason) {
  const std::string_view before = text.substr(0, position);
  const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  const auto isFirstByte = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; };
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const auto column = std::count_if(before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(), isFirstByte);
  return {reason, static_cast<std::size_t>(line), static_cast<std::size_t>(column) + 1};
}

/// What the library says was wrong, without its own number and position and without what it read, which may be long.
std::string reasonOf(std::string_view message) {
  const std::size_t position = message.find(": ");
  if (position != std::string_view::npos) message.remove_prefix(position + 2);
  return std::string(message.substr(0, message.find("; last read")));
}

/// Looks for what cannot or shall not be read.
class Check final : public nlohmann::json_sax<Json> {
 public:
  explicit Check(std::string_view text) : text_(text) {}

  bool null() override { return count(); }
  bool boolean(bool /*value*/) override { return count(); }
  bool number_integer(number_integer_t /*value*/) override { return count(); }
  bool number_unsigned(number_unsigned_t /*value*/) override { return count(); }
  bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return count(); }
  bool string(string_t& /*value*/) override { return count(); }
  bool binary(binary_t& /*value*/) override { return count(); }
  bool start_object(std::size_t /*size*/) override { return enter(); }
  bool end_object() override { return leave(); }
  bool start_array(std::size_t /*size*/) override { return enter(); }
  bool end_array() override { return leave(); }
  bool key(string_t& /*name*/) override {
    if (++members_.back() <= maximumJsonMembers) return true;
    throw JsonFault("an object has more than " + std::to_string(maximumJsonMembers) + " members", 0, 0);
  }
  [[nodiscard]] std::size_t values() const { return values_; }
  bool parse_error(std::size_t position, const std::string& /*token*/, const Json::exception& error) override {
    throw faultAt(text_, position == 0 ? 0 : position - 1, reasonOf(error.what()));
  }

 private:
  bool count() {
    if (++values_ <= maximumJsonValues) return true;
    throw JsonFault("it has more than " + std::to_string(maximumJsonValues) + " values", 0, 0);
  }
  bool enter() {
    members_.push_back(0);
    if (members_.size() <= maximumJsonDepth) return count();
    throw JsonFault("it is nested deeper than " + std::to_string(maximumJsonDepth) + " levels", 0, 0);
  }
  bool leave() {
    members_.pop_back();
    return true;
  }

  std::string_view text_;
  std::size_t values_ = 0;
  std::vector<std::size_t> members_;  ///< Of each container that is open.
};

}  // namespace

Json readJson(const std::string& text) {
  std::string acceptable = text;
  const bool hasLoneSurrogates = replaceLoneSurrogates(acceptable);
  Check check(text);
  Json::sax_parse(acceptable, &check);
  // The library frees values with the help of memory, and ends the process when there is none; so ask for it before.
  std::vector<char>().reserve(check.values() * memoryPerValue);
  Json document = Json::parse(acceptable);
  if (hasLoneSurrogates) restoreLoneSurrogates(document);
  return document;
}

}  // namespace MXF::Tessel::Tool
