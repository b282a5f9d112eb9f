#include "MetaMetadata/XSDLoaderImpl/Names.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::MetaMetadata::Loading {
namespace {

using Templates::WideString;
using Test::narrow;

TEST(Names, TheFirstColonDividesAName) {
  const struct {
    const wchar_t* name;
    const wchar_t* prefix;
    const wchar_t* localPart;
  } cases[] = {
      {L"xs:string", L"xs", L"string"},
      {L"string", L"string", L"string"},
      {L"a:b:c", L"a", L"b:c"},
      {L":b", L"", L"b"},
      {L"a:", L"a", L""},
      {L"", L"", L""},
  };
  for (const auto& [name, prefix, localPart] : cases) {
    EXPECT_EQ(qnamePrefix(name), prefix) << narrow(name);
    EXPECT_EQ(qnameLocalPart(name), localPart) << narrow(name);
  }
}

TEST(Names, PathsAndQueryTextsKeepAllButTheirSpecialCharacter) {
  const struct {
    const wchar_t* text;
    const wchar_t* path;
    const wchar_t* literal;
  } cases[] = {
      {L"a\\b/c\\\\d", L"a/b/c//d", L"'a\\b/c\\\\d'"},
      {L"a/b c", L"a/b c", L"'a/b c'"},
      {L"it's ''", L"it's ''", L"'it''s '''''"},
      {L"", L"", L"''"},
  };
  for (const auto& [text, path, literal] : cases) {
    WideString converted = text;
    toForwardSlashes(converted);
    EXPECT_EQ(converted, path);
    EXPECT_EQ(queryLiteral(text), literal);
  }
}

}  // namespace
}  // namespace MXF::Tessel::MetaMetadata::Loading
