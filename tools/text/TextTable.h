#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// A table of the page's width, each column as wide as its widest cell. When that is too much, the columns that may be
/// wrapped become narrower, the widest first: as far as no word is broken, and further only when
/// that is not enough.
class TextTable {
 public:
  struct Column {
    std::u32string title;
    bool mayWrap = false;
  };

  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// @param cells  one for each column, printable.
  /// @param notes  written below the row, each on lines of its own.
  void addRow(std::vector<std::u32string> cells, std::vector<std::u32string> notes = {});

  /// Appends titles and rows; nothing when there is no row.
  void appendTo(std::string& page) const;

 private:
  struct Row {
    std::vector<std::u32string> cells;
    std::vector<std::u32string> notes;
  };

  [[nodiscard]] std::vector<std::size_t> columnWidths() const;
  /// Makes the columns that may be wrapped narrower, the widest first, until the table fits or all are as narrow as they
  /// may be.
  void shrink(std::vector<std::size_t>& widths, const std::vector<std::size_t>& narrowest) const;

  std::vector<Column> columns_;
  std::vector<Row> rows_;
};

}  // namespace MXF::Tessel::Tool
