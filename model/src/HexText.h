#pragma once

#include <Templates/Containers.h>

#include <cstddef>
#include <initializer_list>
#include <string_view>

/// Text forms of byte strings: bytes joined by dots, plain digits, and digits in groups. Letters are read in either
/// case.
namespace MXF::Tessel::Types::HexText {

/// Writes each byte as two upper-case digits, bytes joined by ".".
Templates::WideString dotted(const unsigned char* bytes, std::size_t count);

/// Reads exactly `count` bytes of two digits each, joined by ".". @return whether the whole text is that.
bool parseDotted(std::wstring_view text, unsigned char* bytes, std::size_t count);

/// Reads groups of bytes, each byte two digits, groups joined by the separator. @return whether the whole text is that.
/// @param groups  number of bytes in each group.
bool parseGroups(std::wstring_view text, wchar_t separator, std::initializer_list<std::size_t> groups,
                 unsigned char* bytes);

/// Takes the prefix off the text, letters in either case. @return whether it was there.
bool skipPrefix(std::wstring_view& text, std::wstring_view prefix);

}  // namespace MXF::Tessel::Types::HexText
