// Examines the bytes of a document that the parser refused. Entry point: explainBytes(); all else is local.

#include "loading/EncodingFault.h"

#include "text/Unicode.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t largestFile = std::size_t{64} << 20U;  // what is larger is not parsed at all
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view blanks = " \t\r\n";

std::optional<std::string> contentOf(const std::string& path) {
  std::error_code failed;
  const std::uintmax_t size = std::filesystem::file_size(path, failed);  // of regular files only
  if (failed || size > largestFile) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::string text(static_cast<std::size_t>(size), '\0');
  file.read(text.data(), static_cast<std::streamsize>(size));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return text;
}

bool beginsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// By the byte order mark, or by the zero byte beside the "<" that XML begins with.
bool isUtf16(std::string_view text) {
  constexpr std::string_view starts[] = {"\xFF\xFE", "\xFE\xFF", {"<\0", 2}, {"\0<", 2}};
  return std::any_of(std::begin(starts), std::end(starts),
                     [&](std::string_view start) { return beginsWith(text, start); });
}

/// The encoding that the XML declaration names, in small letters; empty when it names none.
std::string declaredEncoding(std::string_view text) {
  constexpr std::size_t longest = 400;  // of a declaration in UTF-16
  std::string start(text.substr(0, longest));
  start.erase(std::remove(start.begin(), start.end(), '\0'), start.end());
  const std::size_t begin = start.find("<?xml ");
  std::string declaration = begin == std::string::npos ? "" : start.substr(begin, start.find("?>") - begin);
  const std::size_t encoding = declaration.find("encoding");
  const std::size_t open = declaration.find_first_of("\"'", encoding);
  if (encoding == std::string::npos || open == std::string::npos) return {};
  std::string name = declaration.substr(open + 1, declaration.find(declaration[open], open + 1) - open - 1);
  std::transform(name.begin(), name.end(), name.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return name;
}

/// The bytes that may follow a lead byte first, and how many follow in all (Unicode Standard, table 3-7).
struct Sequence {
  unsigned char firstLead, lastLead, firstSecond, lastSecond;
  std::size_t tail;
};
constexpr Sequence sequences[] = {
    {0x00, 0x7F, 0, 0, 0},       {0xC2, 0xDF, 0x80, 0xBF, 1}, {0xE0, 0xE0, 0xA0, 0xBF, 2},
    {0xE1, 0xEC, 0x80, 0xBF, 2}, {0xED, 0xED, 0x80, 0x9F, 2}, {0xEE, 0xEF, 0x80, 0xBF, 2},
    {0xF0, 0xF0, 0x90, 0xBF, 3}, {0xF1, 0xF3, 0x80, 0xBF, 3}, {0xF4, 0xF4, 0x80, 0x8F, 3}};

/// How many bytes the character has that a text begins with; 0 when that is none.
std::size_t sizeOfCharacter(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (const Sequence& each : sequences) {
    if (byte(0) < each.firstLead || byte(0) > each.lastLead) continue;
    if (text.size() <= each.tail) return 0;
    if (each.tail > 0 && (byte(1) < each.firstSecond || byte(1) > each.lastSecond)) return 0;
    for (std::size_t i = 2; i <= each.tail; ++i) {
      if ((byte(i) & 0xC0U) != 0x80U) return 0;
    }
    return each.tail + 1;
  }
  return 0;
}

std::string hexadecimal(char byte) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  return {digits[value >> 4U], digits[value & 0xFU]};
}

/// The first byte that is not part of a character in UTF-8, if there is one.
std::optional<PlacedNote> firstForeignByte(const Templates::WideString& path, std::string_view text) {
  std::uint32_t line = 1;
  std::uint32_t column = 1;
  std::size_t i = beginsWith(text, utf8Mark) ? utf8Mark.size() : 0;
  while (i < text.size()) {
    const std::size_t size = sizeOfCharacter(text.substr(i));
    if (size == 0) {
      return PlacedNote{{std::make_shared<const Templates::WideString>(path), line, column},
                        "The first byte that is not UTF-8 is here: " + hexadecimal(text[i]) + " hex"};
    }
    const bool endsLine = text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n");
    line += endsLine ? 1 : 0;
    column = endsLine ? 1 : column + (size == 4 ? 2 : 1);  // counted in UTF-16 code units
    i += size;
  }
  return std::nullopt;
}

std::string remedyOfUtf16(const std::string& declared) {
  if (declared.empty() || beginsWith(declared, "utf-16") || beginsWith(declared, "ucs-2")) return {};
  return "The file is in UTF-16, but its first line declares " + declared +
         ": declare encoding=\"UTF-16\" there, or save it as UTF-8.";
}

/// Of bytes that are not UTF-16: the parser sees that, whatever is declared.
bool isReadAsUtf8(const std::string& declared) {
  return declared.empty() || declared == "utf-8" || beginsWith(declared, "utf-16");
}

}  // namespace

Explanation explainBytes(const Templates::WideString& path) {
  const std::string file = narrow(path);
  const std::optional<std::string> content = contentOf(file);
  if (!content) return {};
  const std::string& text = *content;
  Explanation found;
  const std::string declared = declaredEncoding(text);
  const std::size_t begin = text.find_first_not_of(blanks, beginsWith(text, utf8Mark) ? utf8Mark.size() : 0);
  if (begin == std::string::npos) {
    found.remedy = text.empty() ? "The file is empty." : "The file holds nothing but blanks.";
  } else if (isUtf16(text)) {
    found.remedy = remedyOfUtf16(declared);
  } else if (text[begin] != '<') {
    found.remedy = "The file is no XML: it does not begin with \"<\".";
  } else if (isReadAsUtf8(declared)) {
    const std::optional<PlacedNote> foreign = firstForeignByte(path, text);
    if (!foreign) return {};
    found.related.push_back(*foreign);
    found.remedy =
        "Save the file as UTF-8, or declare its encoding in its first line, as in <?xml version=\"1.0\" "
        "encoding=\"ISO-8859-1\"?>";
  }
  return found;
}

}  // namespace MXF::Tessel::Tool
