#include "HexText.h"

#include <algorithm>

namespace MXF::Tessel::Types::HexText {

namespace {

constexpr int noDigit = -1;

int digitValue(wchar_t character) {
  if (character >= L'0' && character <= L'9') return character - L'0';
  if (character >= L'A' && character <= L'F') return character - L'A' + 10;
  if (character >= L'a' && character <= L'f') return character - L'a' + 10;
  return noDigit;
}

/// Takes two digits off the text. @return false when it does not begin with two.
bool takeByte(std::wstring_view& text, unsigned char& byte) {
  if (text.size() < 2) return false;
  const int high = digitValue(text[0]);
  const int low = digitValue(text[1]);
  if (high == noDigit || low == noDigit) return false;
  byte = static_cast<unsigned char>(high * 16 + low);
  text.remove_prefix(2);
  return true;
}

bool takeCharacter(std::wstring_view& text, wchar_t character) {
  if (text.empty() || text.front() != character) return false;
  text.remove_prefix(1);
  return true;
}

wchar_t lowerAscii(wchar_t character) {
  return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

}  // namespace

Templates::WideString dotted(const unsigned char* bytes, std::size_t count) {
  constexpr std::wstring_view digits = L"0123456789ABCDEF";
  Templates::WideString text;
  text.reserve(count * 3);
  for (std::size_t i = 0; i < count; ++i) {
    if (i != 0) text += L'.';
    text += digits[bytes[i] / 16];
    text += digits[bytes[i] % 16];
  }
  return text;
}

bool parseDotted(std::wstring_view text, unsigned char* bytes, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (i != 0 && !takeCharacter(text, L'.')) return false;
    if (!takeByte(text, bytes[i])) return false;
  }
  return text.empty();
}

bool parseGroups(std::wstring_view text, wchar_t separator, std::initializer_list<std::size_t> groups,
                 unsigned char* bytes) {
  bool first = true;
  for (const std::size_t group : groups) {
    if (!first && !takeCharacter(text, separator)) return false;
    first = false;
    for (std::size_t i = 0; i < group; ++i) {
      if (!takeByte(text, *bytes++)) return false;
    }
  }
  return text.empty();
}

bool skipPrefix(std::wstring_view& text, std::wstring_view prefix) {
  if (text.size() < prefix.size()) return false;
  const auto sameLetter = [](wchar_t a, wchar_t b) { return lowerAscii(a) == lowerAscii(b); };
  if (!std::equal(prefix.begin(), prefix.end(), text.begin(), sameLetter)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

}  // namespace MXF::Tessel::Types::HexText
