#include "text/TextLayout.h"

#include "text/Unicode.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

/// Identifiers, paths and URIs have no blanks; their parts end with one of these.
constexpr std::u32string_view separators = U"./:,;-_";

/// How many characters of a text fit into a width, at least one. Combining ones stay with the one before them.
std::size_t fittingCharacters(std::u32string_view text, std::size_t width) {
  std::size_t columns = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    columns += columnsOf(text[i]);
    if (columns > width && i > 0) return i;
  }
  return text.size();
}

/// Where to end a line of a text of which that many characters fit, and how many characters to pass over there.
struct LineEnd {
  std::size_t position;
  std::size_t dropped;
};

LineEnd findLineEnd(std::u32string_view text, std::size_t fitting) {
  // The blank at which the line is broken may be the first character that does not fit.
  const std::size_t blank = text.substr(0, fitting + 1).rfind(U' ');
  if (blank != std::u32string_view::npos && blank > 0) return {blank, 1};
  const std::size_t separator = text.substr(0, fitting).find_last_of(separators);
  if (separator != std::u32string_view::npos && separator >= fitting / 2) return {separator + 1, 0};
  // XML names have no separators, but words that begin with capital letters.
  for (std::size_t i = fitting; i > fitting / 2; --i) {
    const bool startsWord = text[i] >= U'A' && text[i] <= U'Z' && text[i - 1] >= U'a' && text[i - 1] <= U'z';
    if (startsWord) return {i, 0};
  }
  return {fitting, 0};
}

constexpr const char* styleEnd = "\x1B[0m";

/// Select Graphic Rendition of ECMA-48. The eight basic colours only: they suit light and dark terminals alike.
const char* styleStart(Style style) {
  switch (style) {
    case Style::Heading:
    case Style::Name:
      return "\x1B[1m";
    case Style::Title:
      return "\x1B[2m";
    case Style::Error:
      return "\x1B[1;31m";
    case Style::Warning:
      return "\x1B[1;33m";
    case Style::Hint:
      return "\x1B[36m";
    case Style::Plain:
      break;
  }
  return "";
}

}  // namespace

std::string inStyle(std::string_view text, Style style) {
  return style == Style::Plain ? std::string(text) : styleStart(style) + std::string(text) + styleEnd;
}

std::vector<std::u32string> wrap(std::u32string_view text, std::size_t width) {
  std::vector<std::u32string> lines;
  std::size_t fitting = fittingCharacters(text, width);
  while (fitting < text.size()) {
    const LineEnd end = findLineEnd(text, fitting);
    lines.emplace_back(text.substr(0, end.position));
    text.remove_prefix(end.position + end.dropped);
    fitting = fittingCharacters(text, width);
  }
  if (!text.empty() || lines.empty()) lines.emplace_back(text);
  return lines;
}

std::size_t longestWord(std::u32string_view text) {
  std::size_t longest = 0;
  std::size_t columns = 0;
  for (const char32_t character : text) {
    columns = character == U' ' ? 0 : columns + columnsOf(character);
    longest = std::max(longest, columns);
    if (separators.find(character) != std::u32string_view::npos) columns = 0;
  }
  return longest;
}

std::u32string withoutExtraBlanks(std::u32string_view text) {
  std::u32string result;
  for (const char32_t character : text) {
    if (character != U' ' || (!result.empty() && result.back() != U' ')) result += character;
  }
  if (!result.empty() && result.back() == U' ') result.pop_back();
  return result;
}

void appendRow(std::string& page, const std::vector<PlacedText>& row) {
  std::vector<std::vector<std::u32string>> wrapped;
  std::size_t height = 0;
  for (const PlacedText& cell : row) {
    wrapped.push_back(wrap(cell.text, cell.width));
    height = std::max(height, wrapped.back().size());
  }
  for (std::size_t line = 0; line < height; ++line) {
    std::string text;
    std::size_t column = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (line >= wrapped[i].size()) continue;
      const std::u32string_view piece(wrapped[i][line].data(), wrapped[i][line].find_last_not_of(U' ') + 1);
      if (piece.empty()) continue;
      text.append(row[i].column - column, ' ');
      text += inStyle(encode(piece), row[i].style);
      column = row[i].column + columnsOf(piece);
    }
    page += text + '\n';
  }
}

void appendParagraph(std::string& page, std::size_t column, std::u32string_view text, Style style) {
  appendRow(page, {{column, pageWidth - column, std::u32string(text), style}});
}

void appendHeading(std::string& page, std::u32string_view title) {
  page += '\n';
  appendParagraph(page, 0, title, Style::Heading);
}

void appendHeading(std::string& page, std::u32string_view title, std::size_t entries) {
  appendHeading(page, std::u32string(title) + U": " + decimal(entries));
}

std::string withoutStyles(std::string_view page) {
  std::string plain;
  for (std::size_t start = page.find('\x1B'); start != std::string_view::npos; start = page.find('\x1B')) {
    plain += page.substr(0, start);
    page.remove_prefix(std::min(page.find('m', start), page.size() - 1) + 1);
  }
  return plain.append(page);
}

}  // namespace MXF::Tessel::Tool
