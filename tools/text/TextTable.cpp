#include "text/TextTable.h"

#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t rowIndent = 2;
constexpr std::size_t noteIndent = 6;
constexpr std::size_t narrowestColumn = 8;

std::vector<PlacedText> placed(const std::vector<std::u32string>& cells, const std::vector<std::size_t>& widths,
                               Style style = Style::Plain) {
  std::vector<PlacedText> row;
  std::size_t column = rowIndent;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    row.push_back({column, widths[i], cells[i], style});
    column += widths[i] + columnGap;
  }
  return row;
}

}  // namespace

void TextTable::addRow(std::vector<std::u32string> cells, std::vector<std::u32string> notes) {
  rows_.push_back({std::move(cells), std::move(notes)});
}

void TextTable::shrink(std::vector<std::size_t>& widths, const std::vector<std::size_t>& narrowest) const {
  const std::size_t available = pageWidth - rowIndent - columnGap * (widths.size() - 1);
  while (std::accumulate(widths.begin(), widths.end(), std::size_t{0}) > available) {
    std::size_t widest = widths.size();
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const bool canShrink = columns_[i].mayWrap && widths[i] > narrowest[i];
      if (canShrink && (widest == widths.size() || widths[i] > widths[widest])) widest = i;
    }
    if (widest == widths.size()) return;
    // A single very wide cell would take a step for each of its columns.
    widths[widest] = std::max(std::min(widths[widest] - 1, available), narrowest[widest]);
  }
}

std::vector<std::size_t> TextTable::columnWidths() const {
  std::vector<std::size_t> widths;
  std::vector<std::size_t> words;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    std::size_t width = columnsOf(columns_[i].title);
    std::size_t word = std::max(longestWord(columns_[i].title), narrowestColumn);
    for (const Row& row : rows_) {
      width = std::max(width, columnsOf(row.cells[i]));
      word = std::max(word, longestWord(row.cells[i]));
    }
    widths.push_back(width);
    words.push_back(word);
  }
  shrink(widths, words);
  shrink(widths, std::vector<std::size_t>(widths.size(), narrowestColumn));  // where that is not enough, inside words
  return widths;
}

void TextTable::appendTo(std::string& page) const {
  if (rows_.empty()) return;
  const std::vector<std::size_t> widths = columnWidths();
  std::vector<std::u32string> titles;
  for (const Column& column : columns_) titles.push_back(column.title);
  appendRow(page, placed(titles, widths, Style::Title));
  for (const Row& row : rows_) {
    appendRow(page, placed(row.cells, widths));
    for (const std::u32string& note : row.notes) appendParagraph(page, noteIndent, note);
  }
}

}  // namespace MXF::Tessel::Tool
