// The text forms of values, one row for each type, and how they are read strictly: nothing is passed over but blanks at
// the ends. Values are compared as the text that people see of them. All but the entry points is local.

#include "check/ValueForms.h"

#include "text/ElementText.h"
#include "text/Unicode.h"
#include "text/ValueText.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>
#include <Types/Types.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

namespace MXF::Tessel::Tool::ValueForms {

using Types::Identifiers::Identifier;

namespace {

using Text = std::wstring_view;
using Shown = std::optional<std::u32string>;

/// As XML has them.
Text withoutBlanksAround(Text text) {
  constexpr const wchar_t* blanks = L" \t\r\n";
  const std::size_t begin = text.find_first_not_of(blanks);
  if (begin == Text::npos) return {};
  return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

template <class Number>
std::optional<Number> numberOf(Text given) {
  const Text text = withoutBlanksAround(given);
  std::string digits;
  for (const wchar_t character : text) digits += character < 0x80 ? static_cast<char>(character) : '?';
  if (digits.size() > 1 && digits[0] == '+' && digits[1] != '-') digits.erase(0, 1);
  Number number{};
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  return error == std::errc() && stop == end ? std::optional<Number>(number) : std::nullopt;
}

template <class Number>
Shown readNumber(Text text, Identifier /*itemType*/) {
  const auto number = numberOf<Number>(text);
  return number ? Shown(fromAscii(std::to_string(*number))) : std::nullopt;
}

Shown readBoolean(Text given, Identifier /*itemType*/) {
  const std::u32string text = lowerCase(codePoints(Templates::WideString(withoutBlanksAround(given))));
  if (text == U"0" || text == U"false") return U"false";
  if (text == U"1" || text == U"true") return U"true";
  return std::nullopt;
}

Shown readString(Text text, Identifier /*itemType*/) {
  return valueText(Types::UTF16String(Templates::WideString(text).c_str()));
}

Shown readCharacter(Text given, Identifier itemType) {
  const Text text = withoutBlanksAround(given);
  return text.size() == 1 ? readString(text, itemType) : std::nullopt;
}

/// The parts of what is in braces, however many; nothing when there are no braces.
std::optional<std::vector<Text>> partsOf(Text given, std::wstring_view separator) {
  Text text = withoutBlanksAround(given);
  if (text.size() < 2 || text.front() != L'{' || text.back() != L'}') return std::nullopt;
  text = text.substr(1, text.size() - 2);
  std::vector<Text> parts;
  if (text.empty()) return parts;
  for (std::size_t end = text.find(separator); end != Text::npos; end = text.find(separator)) {
    parts.push_back(text.substr(0, end));
    text.remove_prefix(end + separator.size());
  }
  parts.push_back(text);
  return parts;
}

Shown readRational(Text text, Identifier /*itemType*/) {
  const auto parts = partsOf(text, L",");
  if (!parts || parts->size() != 2) return std::nullopt;
  const auto numerator = numberOf<int>(parts->front());
  const auto denominator = numberOf<int>(parts->back());
  if (!numerator || !denominator) return std::nullopt;
  return valueText(Types::Rational(*numerator, *denominator));
}

Shown readLayout(Text given, Identifier /*itemType*/) {
  const Text text = withoutBlanksAround(given);
  Types::RGBALayout layout;
  if (text.size() < 4 || text.substr(0, 2) != L"{{" || text.substr(text.size() - 2) != L"}}") return std::nullopt;
  const auto pairs = partsOf(text.substr(1, text.size() - 2), L"},{");
  if (pairs->size() > Types::RGBALayout::componentCount) return std::nullopt;
  for (std::size_t i = 0; i < pairs->size(); ++i) {
    const Text pair = (*pairs)[i];
    const std::size_t comma = std::min(pair.find(L','), pair.size());
    const auto code = numberOf<unsigned char>(pair.substr(0, comma));
    const auto depth = numberOf<unsigned char>(pair.substr(std::min(comma + 1, pair.size())));
    if (!code || !depth) return std::nullopt;
    layout.set(static_cast<unsigned int>(i), {*code, *depth});
  }
  return valueText(layout);
}

Shown readItems(Text text, Identifier itemType);

/// Texts of these types are refused by the loader unless they are read to the last character.
constexpr auto isReadWhole = nullptr;

struct Row {
  Identifier type;
  const char* form;  ///< The rest of a sentence that says how values are written.
  Shown (*read)(Text text, Identifier itemType);
};

constexpr const char* listForm =
    "{ITEM,ITEM}: the items as their type has them, joined by commas without blanks, four characters or more in all";

constexpr Row rows[] = {
    {Identifier::Array, listForm, readItems},
    {Identifier::Batch, listForm, readItems},
    {Identifier::Boolean, "0 for false, 1 for true", readBoolean},
    {Identifier::Int8, "a whole decimal number from -128 to 127", readNumber<signed char>},
    {Identifier::Int16, "a whole decimal number from -32768 to 32767", readNumber<short>},
    {Identifier::Int32, "a whole decimal number from -2147483648 to 2147483647", readNumber<int>},
    {Identifier::Int64, "a whole decimal number of 64 bits, with a sign if negative", readNumber<long long>},
    {Identifier::Length, "a whole decimal number of 64 bits, with a sign if negative", readNumber<long long>},
    {Identifier::Position, "a whole decimal number of 64 bits, with a sign if negative", readNumber<long long>},
    {Identifier::UInt8, "a whole decimal number from 0 to 255", readNumber<unsigned char>},
    {Identifier::UInt16, "a whole decimal number from 0 to 65535", readNumber<unsigned short>},
    {Identifier::UInt32, "a whole decimal number from 0 to 4294967295", readNumber<unsigned int>},
    {Identifier::UInt64, "a whole decimal number of 64 bits without a sign", readNumber<unsigned long long>},
    {Identifier::Rational, "{NUMERATOR,DENOMINATOR}, two whole decimal numbers, as in {25,1}", readRational},
    {Identifier::RGBALayout,
     "{{COMPONENT,DEPTH},{COMPONENT,DEPTH}} with eight pairs of whole decimal numbers, 0 for what is not used, without "
     "blanks; a component is the number of its letter, as in {82,8} for R",
     readLayout},
    {Identifier::ISO7String, "the text itself", readString},
    {Identifier::UTF16String, "the text itself", readString},
    {Identifier::UTF16, "a single character", readCharacter},
    {Identifier::UniversalLabel, "16 bytes of two hexadecimal digits, joined by dots", isReadWhole},
    {Identifier::UUID, "16 bytes of two hexadecimal digits, joined by dots", isReadWhole},
    {Identifier::UMID32, "32 bytes of two hexadecimal digits, joined by dots", isReadWhole},
    {Identifier::UMID64, "64 bytes of two hexadecimal digits, joined by dots", isReadWhole},
};

const Row* rowOf(Identifier type) {
  const auto* row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& each) { return each.type == type; });
  return row == std::end(rows) ? nullptr : row;
}

Shown readItems(Text text, Identifier itemType) {
  const auto parts = partsOf(text, L",");
  const Row* item = rowOf(itemType);
  if (!parts || item == nullptr || item->read == isReadWhole) return std::nullopt;
  std::u32string all;
  for (const Text part : *parts) {
    const Shown shown = item->read(part, Identifier::Unknown);
    if (!shown) return std::nullopt;
    all += (all.empty() ? U"{" : U", ") + *shown;
  }
  return (all.empty() ? U"{" : all) + U'}';
}

Identifier itemTypeOf(const MetaMetadata::MetaElement& element) {
  MetaMetadata::Visitors::GetMetaElementVisitor<MetaMetadata::MetaCollectionElement> collection;
  element.accept(collection);
  return collection.get() == nullptr ? Identifier::Unknown : collection.get()->dataSubType();
}

}  // namespace

bool isWritten(const Templates::WideString& text, const MetaMetadata::MetaElement& element,
               const Types::BaseType& value) {
  const Row* row = rowOf(element.dataType());
  if (row == nullptr || row->read == isReadWhole) return true;
  const Row* item = rowOf(itemTypeOf(element));
  if (item != nullptr && item->read == isReadWhole) {
    const auto parts = partsOf(text, L",");
    return parts && parts->size() == dynamic_cast<const Types::Collection&>(value).size();
  }
  const Shown shown = row->read(text, itemTypeOf(element));
  return shown && *shown == valueText(value);
}

std::string formOf(const MetaMetadata::MetaElement& element) {
  const Row* row = rowOf(element.dataType());
  if (row == nullptr) return "";
  std::string form = "Values of type " + encode(dataTypeText(element)) + " are written as " + row->form;
  const Row* item = rowOf(itemTypeOf(element));
  if (item != nullptr) form += std::string("; an item is ") + item->form;
  return form + ".";
}

}  // namespace MXF::Tessel::Tool::ValueForms
