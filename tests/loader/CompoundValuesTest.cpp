// Distinguished values written as braced lists.

#include "MetaMetadata/XSDLoaderImpl/CompoundValues.h"
#include "ValueReading.h"

#include <gtest/gtest.h>

#include <vector>

namespace MXF::Tessel::MetaMetadata::Loading {
namespace {

using Templates::WideString;
using Test::narrow;
using Test::readValue;
using Types::Identifiers::Identifier;

std::string joined(const Templates::vector<WideString>& items) {
  std::string text;
  for (const WideString& item : items) text += "[" + narrow(item) + "]";
  return text;
}

struct SplitCase {
  const wchar_t* text;
  std::string items;
};

TEST(BracedList, IsSplitAtEveryCommaBetweenTheOuterBraces) {
  const SplitCase cases[] = {
      {L"", ""},
      {L"{}", ""},
      {L"{1}", ""},  // too short to be a list
      {L"{12}", "[12]"},
      {L"{,,}", "[][]"},
      {L"{1,2,3}", "[1][2][3]"},
      {L"{,1}", "[][1]"},
      {L"{1,,2}", "[1][][2]"},
      {L"{1,2,}", "[1][2]"},
      {L"{1,,}", "[1][]"},
      {L"{ 1, 2 }", "[ 1][ 2 ]"},
      {L"{{1,2},{3}}", "[{1][2}][{3}]"},
      {L" {1,2}", ""},
      {L"{1,2} ", ""},
      {L"1,2,3}", ""},
      {L"{1,2,3", ""},
  };
  for (const SplitCase& row : cases) EXPECT_EQ(joined(splitBracedList(row.text)), row.items) << narrow(row.text);
}

TEST(BracedGroups, AreSplitIntoOneFlatList) {
  const SplitCase cases[] = {
      {L"{{1,2},{3,4},{5,6},{7,8},{9,0},{1,2},{3,4},{5,6}}", "[1][2][3][4][5][6][7][8][9][0][1][2][3][4][5][6]"},
      {L"{{1,2},{3,4},{5,6},{7,8},{9,0},{1,2},{3333,444}}", ""},  // one character too short
      {L"{{111111111,222222222}, {333333333,444444444},{56}}", "[111111111][222222222][56]"},
      {L"{{111111111,222222222}{333333333,444444444},{5,6}}}", "[111111111][222222222][5][6]"},
      {L"{{111111111,222222222}x{333333333,444444444},{5},{}}", "[111111111][222222222][333333333][444444444]"},
      {L"{111111111111111111111111111111111111111111111111}", ""},
      {L"{1111111111111111,1111111111111111,11111111111111,}", ""},
      {L" {{111111111,222222222},{333333333,444444444},{56}}", ""},
      {L"{{111111111,222222222},{333333333,444444444},{5,6}", "[111111111][222222222][333333333][444444444][5][6]"},
  };
  for (const SplitCase& row : cases) EXPECT_EQ(joined(splitBracedGroups(row.text)), row.items) << narrow(row.text);
}

struct CompoundCase {
  Identifier type;
  Identifier subType;
  WideString text;
  std::string result;
};

/// A layout of these components and, behind them, unused ones.
std::string layout(const std::vector<const char*>& components) {
  std::string text = "RGBALayout";
  for (std::size_t i = 0; i < 8; ++i) text += std::string(" ") + (i < components.size() ? components[i] : "0:0");
  return text;
}

void expectResults(const std::vector<CompoundCase>& cases) {
  for (const CompoundCase& row : cases) EXPECT_EQ(readValue(row.type, row.subType, row.text), row.result);
}

TEST(Collections, HoldTheItemsAsTheSubTypeReadsThem) {
  expectResults({
      {Identifier::Array, Identifier::UInt8, L"{1,300,-1}", "Array of 4 bytes {UInt8 1, UInt8 44, UInt8 255}"},
      {Identifier::Batch, Identifier::UInt8, L"{1,300,-1}", "Batch of 4 bytes {UInt8 1, UInt8 44, UInt8 255}"},
      {Identifier::Array, Identifier::Int32, L"{ 1, 2}", "Array of 4 bytes {Int32 1, Int32 2}"},
      {Identifier::Array, Identifier::Boolean, L"{0, 0}", "Array of 1 bytes {Boolean false, Boolean true}"},
      {Identifier::Batch, Identifier::UTF16String, L"{a,, b}",
       "Batch of 0 bytes {UTF16String a, UTF16String , UTF16String  b}"},
      {Identifier::Array, Identifier::Int32, L"{}", "Array of 4 bytes {}"},
      {Identifier::Array, Identifier::Int32, L"{7}", "Array of 4 bytes {}"},
      {Identifier::Array, Identifier::Int32, L"7", "Array of 4 bytes {}"},
      {Identifier::Array, Identifier::Int32, L"{1,,2}", "InvalidValue (16): Invalid Int32 value: "},
      {Identifier::Batch, Identifier::Length, L"{1,x}", "InvalidValue (16): Invalid Length value: x"},
      {Identifier::Array, Identifier::Timestamp, L"{}", "Array of 0 bytes {}"},
      {Identifier::Array, Identifier::Timestamp, L"{12}", "InvalidValue (16): A collection cannot hold an empty item."},
      {Identifier::Batch, Identifier::Unknown, L"{1,2}", "InvalidValue (16): A collection cannot hold an empty item."},
      {Identifier::Array, Identifier::Array, L"{}", "TypeNotSupportedException (47): Not a simple data type: 0"},
      {Identifier::Array, Identifier::Batch, L"{{1,2},{3,4}}",
       "TypeNotSupportedException (47): Not a simple data type: 1"},
      {Identifier::Batch, Identifier::Array, L"7", "TypeNotSupportedException (47): Not a simple data type: 0"},
      // An RGBALayout is read as an item, though no item can be one of eight components.
      {Identifier::Array, Identifier::RGBALayout, L"{12}", "Array of 0 bytes {" + layout({}) + "}"},
      {Identifier::Array, Identifier::Rational, L"{12}", "InvalidValue (16): Invalid Rational value: 12"},
  });
}

TEST(Collections, AreMadeWithTheElementSizeOfTheirSubType) {
  const struct {
    int size;
    std::vector<int> subTypes;
  } cases[] = {
      {1, {2}},
      {2, {25}},
      {4, {5, 6, 8, 17, 18, 20}},
      {8, {7, 11, 13, 19}},
      {0, {3, 4, 9, 10, 12, 14, 15, 16, 21, 22, 23, 24, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, -1}},
  };
  for (const auto& row : cases) {
    for (const int subType : row.subTypes) {
      const std::string rest = " of " + std::to_string(row.size) + " bytes {}";
      EXPECT_EQ(readValue(Identifier::Array, static_cast<Identifier>(subType), L"{}"), "Array" + rest) << subType;
      EXPECT_EQ(readValue(Identifier::Batch, static_cast<Identifier>(subType), L"{}"), "Batch" + rest) << subType;
    }
  }
}

TEST(Rational, IsThePairOfTheFirstTwoItems) {
  const Identifier type = Identifier::Rational;
  const Identifier none = Identifier::Unknown;
  expectResults({
      {type, none, L"{30000,1001}", "Rational 30000/1001"},
      {type, none, L"{-1, 2,x}", "Rational -1/2"},
      {type, none, L"{0,0}", "Rational 0/0"},
      {type, none, L"{25}", "InvalidValue (16): Invalid Rational value: {25}"},
      {type, none, L"{25,}", "InvalidValue (16): Invalid Rational value: {25,}"},
      {type, none, L"25/1", "InvalidValue (16): Invalid Rational value: 25/1"},
      {type, none, L"{x1}", "InvalidValue (16): Invalid Rational value: {x1}"},  // items are counted before any is read
      {type, none, L"{x,y}", "InvalidValue (16): Invalid Int32 value: x"},
      {type, none, L"{1,2147483648}", "InvalidValue (16): Invalid Int32 value: 2147483648"},
      {type, none, L"{1,,2}", "InvalidValue (16): Invalid Int32 value: "},
  });
}

TEST(RGBALayout, IsReadFromPairsOfCodeAndDepth) {
  const Identifier type = Identifier::RGBALayout;
  const Identifier none = Identifier::Unknown;
  const WideString fiveUnused = L",{0,0},{0,0},{0,0},{0,0},{0,0}}";
  expectResults({
      {type, none, L"{{1,2},{3,4},{5,6},{7,8},{9,0},{0,1},{2,3},{4,5}}",
       layout({"1:2", "3:4", "5:6", "7:8", "9:0", "0:1", "2:3", "4:5"})},
      {type, none, L"{{82,10},{71,10},{66,10}" + fiveUnused, layout({"82:10", "71:10", "66:10"})},
      {type, none, L"{{0,0},{0,0},{65,8}" + fiveUnused, layout({"0:0", "0:0", "65:8"})},
      // A code that is no number, or too large, is 0; of any other the low byte counts.
      {type, none, L"{{R,8},{300, 8},{65535,8}" + fiveUnused, layout({"0:8", "44:8", "255:8"})},
      {type, none, L"{{65537,8},{-1,8},{-65535,8}" + fiveUnused, layout({"0:8", "255:8", "1:8"})},
      {type, none, L"{{ 82x,300},{,-1},{-65537,8}" + fiveUnused, layout({"82:44", "0:255", "0:8"})},
      {type, none, L"{{82,R},{71,8},{66,8}" + fiveUnused, "InvalidValue (16): Invalid UInt8 value: R"},
      {type, none, L"{{82,10},{71,10},{66,10},{0,0},{0,0},{0,0}}", layout({})},  // too short to be read
      {type, none, L"", layout({})},
      {type, none, L"{{82,10}, {71,10}, {66,10},{65,1},{0,0},{0,0},{0,0}}", layout({"82:10", "65:1"})},
      {type, none, L"{{82,10,71,10},{66,10,65,1},{1111111111111111,1}}",
       layout({"82:10", "71:10", "66:10", "65:1", "0:1"})},
      // The items are counted before any pair is read, the pairs while they are.
      {type, none, L"{{82,R},{71,8,66},{66,8}" + fiveUnused,
       "InvalidValue (16): Invalid RGBALayout value: {{82,R},{71,8,66},{66,8},{0,0},{0,0},{0,0},{0,0},{0,0}}"},
      {type, none, L"{{1,1},{1,1},{1,1},{1,1}" + fiveUnused,
       "InvalidValue (16): RGBALayout has 8 components, no component 8"},
      {type, none, L"{{0,0},{0,0},{0,0},{0,0},{0,0},{0,0},{0,0},{0,0},{1,x}}",
       "InvalidValue (16): Invalid UInt8 value: x"},
  });
}

}  // namespace
}  // namespace MXF::Tessel::MetaMetadata::Loading
