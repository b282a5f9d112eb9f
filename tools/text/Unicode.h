#pragma once

#include <Templates/Containers.h>

#include <cstddef>
#include <string>
#include <string_view>

/// From the library's wide strings to UTF-8 bytes, and how many columns a text takes. Nothing here depends on the
/// process locale.
namespace MXF::Tessel::Tool {

/// The code points of a text of UTF-16 code units. A lone surrogate, which is none, stands for itself.
std::u32string codePoints(const Templates::WideString& text);

bool isSurrogate(char32_t codePoint);

/// UTF-8, except that a lone surrogate is written in the same way as its neighbours: as three bytes, the first ED hex,
/// the second A0 hex or above, which well-formed UTF-8 never has.
std::string encode(std::u32string_view text);

/// The same of a text that may hold bytes which are not UTF-8, as paths do: they come back as they were.
std::string narrow(const Templates::WideString& text);
/// The same in double quotes, as messages name what is written in a schema.
inline std::string inQuotes(const Templates::WideString& text) {
  return '"' + narrow(text) + '"';
}

/// The text with all that would disturb a terminal or a layout taken out: control characters become blanks, lone
/// surrogates and characters that change the direction of what follows U+FFFD.
std::u32string printable(std::u32string text);

/// The same of UTF-8. Bytes that are none stay: they are of paths.
std::string printableBytes(std::string_view text);

/// The printable code points of a text.
inline std::u32string printable(const Templates::WideString& text) {
  return printable(codePoints(text));
}

/// The printable code points of a text of bytes, as paths and messages are.
std::u32string printable(const std::string& bytes);

/// Whether printable() leaves a code point as it is.
bool isPrintable(char32_t codePoint);

/// A character of a text in the form of encode().
struct Character {
  char32_t codePoint;
  std::size_t size;  ///< In bytes.
};

/// The character that a text, which is not empty, starts with; one of no size where it starts with none.
Character firstCharacter(std::string_view text);

/// Such as "1 file" or "2 files".
std::u32string counted(std::size_t number, const std::u32string& noun);
std::string counted(std::size_t number, const std::string& noun);

/// Columns that a code point takes in a terminal: 0 for combining and invisible ones, 2 for wide ones (Unicode Standard
/// Annex 11), else 1.
std::size_t columnsOf(char32_t codePoint);
std::size_t columnsOf(std::u32string_view text);

/// A decimal number.
std::u32string decimal(std::size_t number);

/// The text with capital ASCII letters as small ones.
std::u32string lowerCase(std::u32string_view text);

/// A text of ASCII characters.
std::u32string fromAscii(std::string_view text);

}  // namespace MXF::Tessel::Tool
