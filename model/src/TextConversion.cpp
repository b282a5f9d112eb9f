// UTF-8 to UTF-16 code units and back.

#include <Utils/TextConversion.h>

#include <string>
#include <string_view>

namespace MXF::Tessel::Utils {

using Templates::NarrowString;
using Templates::WideString;

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;
// An undecodable byte travels as one of these lone surrogates, which no well-formed text holds.
constexpr char32_t escapedByteBase = 0xDC00;

bool isHighSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(char32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}

void appendCodeUnits(WideString& text, char32_t codePoint) {
  if (codePoint <= 0xFFFF || codePoint > 0x10FFFF) {
    text += static_cast<wchar_t>(codePoint <= 0xFFFF ? codePoint : replacementCharacter);
    return;
  }
  const char32_t offset = codePoint - 0x10000;
  text += static_cast<wchar_t>(0xD800 + (offset >> 10U));
  text += static_cast<wchar_t>(0xDC00 + (offset & 0x3FFU));
}

void appendUtf8(NarrowString& text, char32_t codePoint) {
  const auto put = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  const auto putTail = [&put, codePoint](unsigned shift) { put(0x80U | ((codePoint >> shift) & 0x3FU)); };
  if (codePoint < 0x80) {
    put(codePoint);
  } else if (codePoint < 0x800) {
    put(0xC0U | codePoint >> 6U);
    putTail(0);
  } else if (codePoint < 0x10000) {
    put(0xE0U | codePoint >> 12U);
    putTail(6);
    putTail(0);
  } else {
    put(0xF0U | codePoint >> 18U);
    putTail(12);
    putTail(6);
    putTail(0);
  }
}

/// Number of bytes that follow a lead byte, and the smallest code point that needs them; 0 bytes for no lead byte.
struct Sequence {
  unsigned tail;
  char32_t smallest;
};

Sequence sequenceOf(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return {1, 0x80};
  if (lead >= 0xE0 && lead <= 0xEF) return {2, 0x800};
  if (lead >= 0xF0 && lead <= 0xF4) return {3, 0x10000};
  return {0, 0};
}

/// Takes one code point, or one escaped byte, off the front of the text.
char32_t takeUtf8(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (lead < 0x80) return lead;
  const Sequence sequence = sequenceOf(lead);
  if (sequence.tail == 0 || text.size() < sequence.tail) return escapedByteBase + lead;
  char32_t codePoint = lead & (0x3FU >> sequence.tail);
  for (unsigned i = 0; i < sequence.tail; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80U) return escapedByteBase + lead;
    codePoint = codePoint << 6U | (byte & 0x3FU);
  }
  const bool wellFormed = codePoint >= sequence.smallest && codePoint <= 0x10FFFF && !isHighSurrogate(codePoint) &&
                          !isLowSurrogate(codePoint);
  if (!wellFormed) return escapedByteBase + lead;
  text.remove_prefix(sequence.tail);
  return codePoint;
}

}  // namespace

WideString stringToWstring(const char* text) {
  WideString wide;
  std::string_view rest = text == nullptr ? std::string_view() : std::string_view(text);
  wide.reserve(rest.size());
  while (!rest.empty()) appendCodeUnits(wide, takeUtf8(rest));
  return wide;
}

NarrowString wstringToString(const wchar_t* text) {
  NarrowString narrow;
  if (text == nullptr) return narrow;
  while (*text != L'\0') {
    auto unit = static_cast<char32_t>(*text++);
    const auto next = static_cast<char32_t>(*text);
    if (isHighSurrogate(unit) && isLowSurrogate(next)) {
      unit = 0x10000 + ((unit - 0xD800) << 10U) + (next - 0xDC00);
      ++text;
    }
    if (unit >= escapedByteBase + 0x80 && unit <= escapedByteBase + 0xFF) {
      narrow += static_cast<char>(static_cast<unsigned char>(unit - escapedByteBase));
    } else if (isHighSurrogate(unit) || isLowSurrogate(unit) || unit > 0x10FFFF) {
      appendUtf8(narrow, replacementCharacter);
    } else {
      appendUtf8(narrow, unit);
    }
  }
  return narrow;
}

WideString toCodeUnits(const wchar_t* text) {
  WideString units;
  if (text == nullptr) return units;
  while (*text != L'\0') appendCodeUnits(units, static_cast<char32_t>(*text++));
  return units;
}

WideString toDecimal(long long number) {
  const std::wstring digits = std::to_wstring(number);
  return {digits.begin(), digits.end()};
}

}  // namespace MXF::Tessel::Utils
