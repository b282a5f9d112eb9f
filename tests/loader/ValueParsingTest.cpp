// Distinguished values from their texts: numbers, words and identifiers by data type.

#include "MetaMetadata/XSDLoaderImpl/NumberExtraction.h"
#include "ValueReading.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace MXF::Tessel::MetaMetadata::Loading {
namespace {

using Templates::WideString;
using Test::GermanProcess;
using Test::narrow;
using Test::readValue;
using Types::Identifiers::Identifier;

/// What the standard's own wide input stream, in its initial state, extracts.
template <class Number>
std::optional<Number> extractedByStream(const WideString& text) {
  std::wistringstream stream(std::wstring(text.begin(), text.end()));
  stream.imbue(std::locale::classic());
  Number number = 0;
  return stream >> number ? std::optional<Number>(number) : std::nullopt;
}

template <class Number>
void expectAsByStream(const WideString& text) {
  EXPECT_EQ(extractNumber<Number>(text), extractedByStream<Number>(text))
      << sizeof(Number) << " bytes from " << narrow(text);
}

TEST(NumberExtraction, ReadsAsAWideInputStreamDoes) {
  std::vector<WideString> magnitudes = {L"", L"x", L"007", L"\x0661", L"18446744073709551616", L"99999999999999999999"};
  for (const int bits : {0, 8, 15, 16, 17, 31, 32, 33, 63, 64}) {
    const unsigned long long power = bits == 64 ? 0 : 1ULL << bits;
    for (const unsigned long long number : {power - 1, power, power + 1}) {
      magnitudes.emplace_back(std::to_wstring(number).c_str());
    }
  }
  const WideString leads[] = {L"", L"+", L"-", L"+-", L"- ", L" \t\n\v\f\r", L"\t-", L"\xA0", L"\x2003", L"0x", L"."};
  const WideString trails[] = {L"", L" ", L"5", L"x", L".5", L",5", L" 5", L"-5", L"\x0662"};
  for (const WideString& magnitude : magnitudes) {
    for (const WideString& lead : leads) {
      for (const WideString& trail : trails) {
        WideString text = lead;
        text.append(magnitude).append(trail);
        expectAsByStream<unsigned short>(text);
        expectAsByStream<int>(text);
        expectAsByStream<unsigned int>(text);
        expectAsByStream<long long>(text);
        expectAsByStream<unsigned long long>(text);
      }
    }
  }
}

struct ValueCase {
  Identifier type;
  WideString text;
  std::string result;
};

const ValueCase valueCases[] = {
    {Identifier::Int32, L"12abc", "Int32 12"},  // stops at the first non-digit
    {Identifier::Int32, L"1.5", "Int32 1"},
    {Identifier::Int32, L" \t\n\v\f\r+7 8", "Int32 7"},
    {Identifier::Int32, L"0x1F", "Int32 0"},
    {Identifier::Int32, L"-2147483648", "Int32 -2147483648"},
    {Identifier::Int32, L"-2147483649", "InvalidValue (16): Invalid Int32 value: -2147483649"},
    {Identifier::Int32, L"2147483648", "InvalidValue (16): Invalid Int32 value: 2147483648"},
    {Identifier::Int32, L"1.234.567", "Int32 1"},
    {Identifier::Int32,
     WideString(L"4\0"
                L"2",
                3),
     "Int32 4"},
    {Identifier::Int32,
     WideString(L"\0"
                L"2",
                2),
     "InvalidValue (16): Invalid Int32 value: "},
    {Identifier::Int8, L"200", "Int8 -56"},  // cut to the low 8 bits
    {Identifier::Int8, L"2147483648", "InvalidValue (16): Invalid Int8 value: 2147483648"},
    {Identifier::Int8, L"-1", "Int8 -1"},
    {Identifier::Int16, L"40000", "Int16 -25536"},
    {Identifier::Int16, L"-2147483648", "Int16 0"},
    {Identifier::Int16, L"2147483648", "InvalidValue (16): Invalid Int16 value: 2147483648"},
    {Identifier::Int16, L"-", "InvalidValue (16): Invalid Int16 value: -"},
    {Identifier::Int64, L"-9223372036854775808", "Int64 -9223372036854775808"},
    {Identifier::Int64, L"9223372036854775808", "InvalidValue (16): Invalid Int64 value: 9223372036854775808"},
    {Identifier::UInt8, L"300", "UInt8 44"},
    {Identifier::UInt8, L"-1", "UInt8 255"},
    {Identifier::UInt8, L"4294967294", "UInt8 254"},
    {Identifier::UInt8, L"x", "InvalidValue (16): Invalid UInt8 value: x"},
    {Identifier::UInt16, L"70000", "UInt16 4464"},
    {Identifier::UInt16, L"-1", "UInt16 65535"},
    {Identifier::UInt16, L"4294967296", "InvalidValue (16): Invalid UInt16 value: 4294967296"},
    {Identifier::UInt32, L"-1", "UInt32 4294967295"},
    {Identifier::UInt32, L"-4294967296", "InvalidValue (16): Invalid UInt32 value: -4294967296"},
    {Identifier::UInt64, L"-1", "UInt64 18446744073709551615"},
    {Identifier::UInt64, L"18446744073709551616", "InvalidValue (16): Invalid UInt64 value: 18446744073709551616"},
    {Identifier::Length, L"-1", "Length -1"},
    {Identifier::Length, L"one", "InvalidValue (16): Invalid Length value: one"},
    {Identifier::Position, L"9223372036854775807", "Position 9223372036854775807"},
    {Identifier::Position, L"", "InvalidValue (16): Invalid Position value: "},

    {Identifier::Boolean, L"0", "Boolean false"},
    {Identifier::Boolean,
     WideString(L"0\0"
                L"1",
                3),
     "Boolean false"},  // a text ends at its first null character
    {Identifier::Boolean, L"1", "Boolean true"},
    {Identifier::Boolean, L"false", "Boolean true"},
    {Identifier::Boolean, L"00", "Boolean true"},
    {Identifier::Boolean, L"0 ", "Boolean true"},
    {Identifier::Boolean, L"", "Boolean true"},
    {Identifier::ISO7String, L" Film {1} ", "ISO7String  Film {1} "},
    {Identifier::ISO7String, L"Caf\xE9", "InvalidValue (16): Not an ISO 7-bit text: Caf\xC3\xA9"},
    {Identifier::UTF16, L" \t\n\v\f\rab cd", "UTF16 97"},
    {Identifier::UTF16, L"\xA0x", "UTF16 160"},
    {Identifier::UTF16, L"", "UTF16 0"},
    {Identifier::UTF16String, L" \x20AC {1} ", "UTF16String  \xE2\x82\xAC {1} "},

    {Identifier::UniversalLabel, L"urn:smpte:ul:060e2b34.0401010a.04010101.01010000",
     "UniversalLabel 06.0E.2B.34.04.01.01.0A.04.01.01.01.01.01.00.00"},
    {Identifier::UniversalLabel, L"06.0E", "InvalidULDesignator (25): 06.0E"},
    {Identifier::UUID, L"12345678-9abc-def0-0123-456789abcdef", "UUID 12.34.56.78.9A.BC.DE.F0.01.23.45.67.89.AB.CD.EF"},
    {Identifier::UUID, L" 12345678-9abc-def0-0123-456789abcdef",
     "InvalidValue (16): Invalid UUID:  12345678-9abc-def0-0123-456789abcdef"},
    {Identifier::UMID32, L"0x0", "InvalidValue (16): Invalid UMID: 0x0"},
    {Identifier::UMID64, L"0", "InvalidValue (16): Invalid UMID: 0"},
};

TEST(ValueParsing, ReadsEachTypeByItsOwnRule) {
  for (const ValueCase& row : valueCases) EXPECT_EQ(readValue(row.type, Identifier::Unknown, row.text), row.result);
}

TEST(ValueParsing, ReadsUMIDsOfBothLengths) {
  const auto repeated = [](std::size_t count, const WideString& text) {
    WideString all;
    for (std::size_t i = 0; i < count; ++i) all += text;
    return all;
  };
  const auto dotted = [](std::size_t count) {
    std::string text = "A5";
    for (std::size_t i = 1; i < count; ++i) text += ".A5";
    return text;
  };
  EXPECT_EQ(readValue(Identifier::UMID32, Identifier::Unknown, L"0x" + repeated(32, L"a5")), "UMID32 " + dotted(32));
  EXPECT_EQ(readValue(Identifier::UMID64, Identifier::Unknown, L"0x" + repeated(64, L"a5")), "UMID64 " + dotted(64));
}

TEST(ValueParsing, TypeWithoutTextFormGivesNoValueForAnyText) {
  for (const int type : {3, 4, 10, 12, 14, 16, 24, 28, 29, 30, 31, 32, 33, 35, 1000, -1}) {
    for (const wchar_t* text : {L"", L"0", L"{1,2}", L"3C.0A", L"x"}) {
      EXPECT_EQ(readValue(static_cast<Identifier>(type), Identifier::UInt8, text), "no value") << type;
    }
  }
}

TEST(ValueParsing, SubTypeCountsForCollectionsOnly) {
  for (const int subType : {-1, 0, 1, 5, 20, 30, 34, 99}) {
    for (const ValueCase& row : valueCases) {
      EXPECT_EQ(readValue(row.type, static_cast<Identifier>(subType), row.text), row.result) << subType;
    }
  }
}

TEST(ValueParsing, DoesNotDependOnTheProcessLocale) {
  const GermanProcess german;
  int grouped = 0;
  std::wistringstream(L"1.234.567") >> grouped;
  ASSERT_EQ(grouped, 1234567);  // the locale is in force
  for (const ValueCase& row : valueCases) EXPECT_EQ(readValue(row.type, Identifier::Unknown, row.text), row.result);
}

}  // namespace
}  // namespace MXF::Tessel::MetaMetadata::Loading
