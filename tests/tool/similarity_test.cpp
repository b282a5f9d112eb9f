// What counts as a typing mistake.

#include "text/Similarity.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::Tool {
namespace {

TEST(Similarity, CountsEditsAndExchangedNeighbours) {
  struct {
    const char32_t* a;
    const char32_t* b;
    std::size_t distance;
    bool similar;
  } const cases[] = {
      {U"", U"", 0, true},
      {U"abc", U"", 3, false},
      {U"abc", U"abd", 1, true},
      {U"ab", U"ac", 1, false},  // half of it
      {U"abcdef", U"abdcef", 1, true},
      {U"scheme", U"schmee", 1, true},
      {U"scheme", U"shceem", 2, true},
      {U"TRACK", U"trac", 5, true},  // capitals count for the distance only
      {U"a long name with words", U"along nme with word", 3, true},
      {U"a long name with words", U"along nme wih word", 4, false},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(editDistance(row.a, row.b), row.distance);
    EXPECT_EQ(editDistance(row.b, row.a), row.distance);
    EXPECT_EQ(isSimilar(row.a, row.b), row.similar) << row.distance;
  }
}

TEST(Similarity, TheNearestWordsAreThoseThatBeginWithItElseThoseWithTheFewestEdits) {
  const std::vector<std::string> known{"--format", "--output", "--only", "--documentation", "--dictionary"};
  const auto suggestions = [&](const char* given) { return nearest(given, known); };
  using Words = std::vector<std::string>;
  EXPECT_EQ(suggestions("--o"), Words());
  EXPECT_EQ(suggestions("--do"), Words{"--documentation"});
  EXPECT_EQ(suggestions("--o n"), Words());
  EXPECT_EQ(suggestions("--outptu"), Words{"--output"});
  EXPECT_EQ(suggestions("--FROMAT"), Words{"--format"});
  EXPECT_EQ(nearest("ax", {"abx", "acx", "axyz", "xyz"}), (Words{"axyz"}));
  EXPECT_EQ(nearest("aax", {"abx", "acx", "xyz"}), (Words{"abx", "acx"}));
}

}  // namespace
}  // namespace MXF::Tessel::Tool
