// Where lines are broken, and how wide tables are.

#include "text/TextLayout.h"
#include "text/TextTable.h"
#include "text/Unicode.h"

#include <gtest/gtest.h>

#include <vector>

namespace MXF::Tessel::Tool {
namespace {

TEST(TextLayout, LinesAreBrokenWhereItHurtsLeast) {
  struct {
    const char32_t* text;
    std::size_t width;
    std::vector<std::u32string> lines;
  } const cases[] = {
      {U"", 5, {U""}},
      {U"abcde", 5, {U"abcde"}},
      {U"abcde ", 5, {U"abcde"}},
      {U"ab cd ef", 5, {U"ab cd", U"ef"}},  // the blank at the break is dropped
      {U"ab  cd", 6, {U"ab  cd"}},          // others stay
      {U"abcdefg hi", 5, {U"abcde", U"fg hi"}},
      {U"ab.cd.ef", 7, {U"ab.cd.", U"ef"}},    // after punctuation
      {U"a.bcdefgh", 8, {U"a.bcdefg", U"h"}},  // but not for a line that is nearly empty
      {U"abcdEfghi", 6, {U"abcd", U"Efghi"}},  // before a word of an XML name
      {U"漢字漢", 5, {U"漢字", U"漢"}},
      {U"ae\u0301bc", 3, {U"ae\u0301b", U"c"}},  // a combining character stays with its letter
      {U"abe\u0301", 3, {U"abe\u0301"}},
  };
  for (const auto& row : cases) EXPECT_EQ(wrap(row.text, row.width), row.lines) << encode(row.text);
}

TEST(TextLayout, RowsAreAsHighAsTheirHighestCell) {
  std::string page;
  appendRow(page, {{1, 3, U"a"}, {6, 4, U"漢b cd"}, {12, 3, U""}, {16, 3, U"x y zzz"}});
  EXPECT_EQ(page, " a    漢b       x y\n      cd        zzz\n");
}

TEST(TextTable, OnlyTheColumnsThatMayAreMadeNarrower) {
  TextTable table({{U"Fixed"}, {U"Wide", true}, {U"Wider", true}});
  table.addRow({std::u32string(40, U'f'), std::u32string(30, U'w'), std::u32string(50, U'v')}, {U"note"});
  std::string page;
  table.appendTo(page);
  const std::string fixed(40, 'f');
  const std::string gap(42, ' ');
  EXPECT_EQ(withoutStyles(page), "  Fixed" + std::string(37, ' ') + "Wide" + std::string(25, ' ') + "Wider\n" +  //
                                     "  " + fixed + "  " + std::string(27, 'w') + "  " + std::string(27, 'v') + "\n" +
                                     "  " + gap + std::string(3, 'w') + std::string(26, ' ') + std::string(23, 'v') +
                                     "\n      note\n");
  EXPECT_NE(page.find("\x1B[2mFixed\x1B[0m"), std::string::npos);
  TextTable words({{std::u32string(50, U'f')}, {U"Long", true}, {U"Short", true}});
  words.addRow({U"", std::u32string(36, U'w'), U"many short words that can be wrapped as well"});
  page.clear();
  words.appendTo(page);
  EXPECT_NE(page.find(std::string(36, 'w')), std::string::npos);
  std::string none;
  TextTable({{U"Title"}}).appendTo(none);
  EXPECT_EQ(none, "");
}

}  // namespace
}  // namespace MXF::Tessel::Tool
