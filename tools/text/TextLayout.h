#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Text in columns of a terminal, for people.
namespace MXF::Tessel::Tool {

/// No line is longer, so that output can be read in a terminal of that width.
constexpr std::size_t pageWidth = 100;
/// Columns between two columns of text.
constexpr std::size_t columnGap = 2;

/// Breaks a text into lines of at most that many columns: at blanks where there are any, else after punctuation,
/// else before a capital letter, else anywhere. There is at least one line.
/// @param width  at least 2, the width of the widest character.
std::vector<std::u32string> wrap(std::u32string_view text, std::size_t width);

/// The columns of the longest part of a text that is not broken at blanks or after punctuation.
std::size_t longestWord(std::u32string_view text);

/// The text with each run of blanks made one, and none at its ends.
std::u32string withoutExtraBlanks(std::u32string_view text);

/// How a piece of text stands out on a terminal that shows colours.
enum class Style { Plain, Heading, Title, Name, Error, Warning, Hint };

/// The text between the control sequences of a style.
std::string inStyle(std::string_view text, Style style);

/// A piece of text that starts at a column, counted from 0, and is wrapped to a width.
struct PlacedText {
  std::size_t column;
  std::size_t width;
  std::u32string text;
  Style style = Style::Plain;
};

/// The page without the control sequences that styles are made of. A page holds no other ones, as its texts are
/// printable.
std::string withoutStyles(std::string_view page);

/// Appends a row of texts beside each other, as UTF-8: as many lines as the tallest one needs, no blanks at their ends.
/// @param row  from left to right, without overlap.
void appendRow(std::string& page, const std::vector<PlacedText>& row);

/// Appends a text that takes the page's whole width from a column on.
void appendParagraph(std::string& page, std::size_t column, std::u32string_view text, Style style = Style::Plain);

/// Appends an empty line and a heading.
void appendHeading(std::string& page, std::u32string_view title);

/// Appends an empty line and the heading of a section, with the number of its entries.
void appendHeading(std::string& page, std::u32string_view title, std::size_t entries);

}  // namespace MXF::Tessel::Tool
