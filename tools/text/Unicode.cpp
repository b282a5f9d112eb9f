#include "text/Unicode.h"

#include <Utils/TextConversion.h>

#include <algorithm>
#include <iterator>

namespace MXF::Tessel::Tool {

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

bool inRanges(const Range* begin, const Range* end, char32_t codePoint) {
  const Range* range =
      std::lower_bound(begin, end, codePoint, [](const Range& r, char32_t value) { return r.last < value; });
  return range != end && range->first <= codePoint;
}

// Combining and format characters of the scripts that metadata is likely to be in; not the whole of Unicode's list.
constexpr Range invisible[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD},  {0x0610, 0x061A}, {0x064B, 0x065F}, {0x093C, 0x093C},
    {0x0941, 0x0948}, {0x094D, 0x094D}, {0x0E31, 0x0E31},  {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF},
    {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x202A, 0x202E},  {0x2060, 0x2069}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F},
    {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF}};

// East Asian wide and fullwidth characters, and emoji that are shown in colour.
constexpr Range doubleWidth[] = {
    {0x1100, 0x115F}, {0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x2E80, 0x303E},   {0x3041, 0x33FF},  {0x3400, 0x4DBF},
    {0x4E00, 0xA4CF}, {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},  {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isControl(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F) || codePoint == 0x2028 || codePoint == 0x2029;
}

// Embeddings, overrides and isolates of the bidirectional algorithm, which show what follows in another order, and tags,
// which nothing shows.
constexpr Range misleading[] = {{0x202A, 0x202E}, {0x2066, 0x2069}, {0xE0000, 0xE007F}};

char32_t printableCharacter(char32_t codePoint) {
  if (isControl(codePoint)) return U' ';
  const bool misleads = inRanges(std::begin(misleading), std::end(misleading), codePoint);
  return misleads || isSurrogate(codePoint) ? U'\uFFFD' : codePoint;
}

/// How many bytes the character takes that a text starts with; 0 when it starts with none.
std::size_t sizeOfFirst(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t size = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF8 ? 4 : 0;
  if (size > text.size()) return 0;
  const auto isTail = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  return std::all_of(text.begin() + 1, text.begin() + std::max<std::size_t>(size, 1), isTail) ? size : 0;
}

void appendEncoded(std::string& bytes, char32_t codePoint) {
  if (codePoint < 0x80) {
    bytes += static_cast<char>(codePoint);
    return;
  }
  const unsigned tail = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
  const unsigned lead = 0xFF00U >> (tail + 1) & 0xFFU;  // one leading 1 bit for each byte of the sequence
  const auto put = [&bytes](char32_t byte) { bytes += static_cast<char>(static_cast<unsigned char>(byte)); };
  put(lead | codePoint >> (6 * tail));
  for (unsigned i = tail; i-- > 0;) put(0x80U | (codePoint >> (6 * i) & 0x3FU));
}

}  // namespace

std::string narrow(const Templates::WideString& text) {
  const Templates::NarrowString result = Utils::wstringToString(text.c_str());
  return {result.begin(), result.end()};
}

bool isSurrogate(char32_t codePoint) {
  return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

std::u32string codePoints(const Templates::WideString& text) {
  std::u32string points;
  points.reserve(text.size());
  for (auto unit = text.begin(); unit != text.end(); ++unit) {
    const auto first = static_cast<char32_t>(*unit);
    const char32_t second = std::next(unit) == text.end() ? 0 : static_cast<char32_t>(*std::next(unit));
    if (isHighSurrogate(first) && isSurrogate(second) && !isHighSurrogate(second)) {
      points.push_back(0x10000 + ((first - 0xD800) << 10U) + (second - 0xDC00));
      ++unit;
    } else {
      points.push_back(first);
    }
  }
  return points;
}

std::string encode(std::u32string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const char32_t codePoint : text) appendEncoded(bytes, codePoint);
  return bytes;
}

std::u32string printable(std::u32string text) {
  std::transform(text.begin(), text.end(), text.begin(), printableCharacter);
  return text;
}

bool isPrintable(char32_t codePoint) {
  return printableCharacter(codePoint) == codePoint;
}

Character firstCharacter(std::string_view text) {
  const std::size_t size = sizeOfFirst(text);
  char32_t codePoint = static_cast<unsigned char>(text.front());
  if (size > 1) codePoint &= 0x7FU >> size;
  for (std::size_t i = 1; i < size; ++i) codePoint = codePoint << 6U | (static_cast<unsigned char>(text[i]) & 0x3FU);
  return {codePoint, size};
}

std::string printableBytes(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto [codePoint, size] = firstCharacter(text);
    if (size == 0) {
      result += text.front();
    } else {
      appendEncoded(result, printableCharacter(codePoint));
    }
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return result;
}

std::u32string printable(const std::string& bytes) {
  std::string text = bytes;
  std::replace(text.begin(), text.end(), '\0', ' ');  // would end it
  return printable(Utils::stringToWstring(text.c_str()));
}

std::size_t columnsOf(char32_t codePoint) {
  if (inRanges(std::begin(invisible), std::end(invisible), codePoint)) return 0;
  return inRanges(std::begin(doubleWidth), std::end(doubleWidth), codePoint) ? 2 : 1;
}

std::size_t columnsOf(std::u32string_view text) {
  std::size_t columns = 0;
  for (const char32_t codePoint : text) columns += columnsOf(codePoint);
  return columns;
}

std::u32string decimal(std::size_t number) {
  return fromAscii(std::to_string(number));
}

std::u32string counted(std::size_t number, const std::u32string& noun) {
  return decimal(number) + U' ' + noun + (number == 1 ? U"" : U"s");
}

std::string counted(std::size_t number, const std::string& noun) {
  return encode(counted(number, fromAscii(noun)));
}

std::u32string lowerCase(std::u32string_view text) {
  std::u32string result(text);
  for (char32_t& character : result) {
    if (character >= U'A' && character <= U'Z') character += U'a' - U'A';
  }
  return result;
}

std::u32string fromAscii(std::string_view text) {
  std::u32string points;
  for (const char character : text) points += static_cast<unsigned char>(character);
  return points;
}

}  // namespace MXF::Tessel::Tool
