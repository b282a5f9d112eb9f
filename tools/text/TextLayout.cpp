#include "text/TextLayout.h"

#include "text/Unicode.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

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
  // Identifiers, paths and URIs have no blanks; their parts end with one of these.
  const std::size_t separator = text.substr(0, fitting).find_last_of(U"./:,;-_");
  if (separator != std::u32string_view::npos && separator >= fitting / 2) return {separator + 1, 0};
  return {fitting, 0};
}

}  // namespace

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
      if (line >= wrapped[i].size() || wrapped[i][line].empty()) continue;
      text.append(row[i].column - column, ' ');
      text += encode(wrapped[i][line]);
      column = row[i].column + columnsOf(wrapped[i][line]);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    page += text + '\n';
  }
}

void appendParagraph(std::string& page, std::size_t column, std::u32string_view text) {
  appendRow(page, {{column, pageWidth - column, std::u32string(text)}});
}

void appendHeading(std::string& page, std::u32string_view title, std::size_t entries) {
  page += '\n';
  appendParagraph(page, 0, std::u32string(title) + U": " + decimal(entries));
}

}  // namespace MXF::Tessel::Tool
