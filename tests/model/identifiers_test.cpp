// Data-type numbers and names, what the factory supports, and the words for the required status.

#include "support.h"

#include <MetaMetadata/AttributeRequiredStatus.h>
#include <Types/Factories/BaseTypeFactory.h>
#include <Types/Identifiers.h>

#include <gtest/gtest.h>

#include <cwctype>
#include <sstream>
#include <string>
#include <utility>

namespace MXF::Tessel {
namespace {

using Templates::WideString;
using Test::failureOf;
using Test::narrow;
using Types::Factories::BaseTypeFactory;
using Types::Identifiers::Identifier;
using Types::Identifiers::identifierToString;
using Types::Identifiers::stringToIdentifier;

constexpr int unknown = 24;

int numberOf(const wchar_t* name) {
  return static_cast<int>(stringToIdentifier(name));
}

// The names of each number from 0 on, every number's ended by a semicolon; 24 has none.
const wchar_t* const namesByNumber =
    L"Array; Batch; Boolean; DataStream; DataValue; Int16; Int32; Int64; Int8; ISO7bitCharString "
    L"ISO7String; ISO8BitCharString ISO8String; Length; LocalTag; Position; ProductVersionType "
    L"ProductVersion; Rational EditRate; TimestampType Timestamp; UInt16; UInt32; UInt64; UInt8 "
    L"Orientation SignalStandard; UMID32; UMID64; UL KLVKey UniversalLabel;; UTF16Char UTF16; "
    L"UTF16CharString UTF16String; UUID AUID IDAU; VersionType Version; StrongReference; WeakReference; "
    L"UTF8CharString UTF8String; Float; Record IndexEntryType DeltaEntryType J2KPictureComponentType "
    L"J2KComponentSizingArray J2KCodingStyleDefault J2KQuantisationDefault; RGBALayout;";

template <class Convert>
std::wstring converted(std::wstring text, Convert convert) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(convert(static_cast<std::wint_t>(c)));
  return text;
}

TEST(DataTypeNames, GiveTheirNumberInExactlyThisSpelling) {
  int number = 0;
  std::wistringstream table(namesByNumber);
  for (std::wstring names; std::getline(table, names, L';');) {
    std::wistringstream words(names);
    for (std::wstring name; words >> name;) {
      const std::wstring nearMisses[] = {converted(name, &std::towlower), name + L" ", L"t:" + name,
                                         name.substr(0, name.size() - 1)};
      EXPECT_EQ(numberOf(name.c_str()), number) << name;
      for (const std::wstring& text : nearMisses) EXPECT_EQ(numberOf(text.c_str()), unknown) << text;
      const std::wstring upper = converted(name, &std::towupper);
      EXPECT_EQ(numberOf(upper.c_str()), upper == name ? number : unknown) << upper;
    }
    EXPECT_EQ(numberOf(identifierToString(static_cast<Identifier>(number))), number) << "as written for people";
    ++number;
  }
  EXPECT_EQ(number, 35);
}

TEST(DataTypeNames, OfReferenceKindsAndTheEmptyOneAreUnknown) {
  for (const wchar_t* name : {L"", L"Unknown", L"StrongRefHolder", L"WeakRefHolder", L"StrongRefArray", L"WeakRefArray",
                              L"StrongRefBatch", L"WeakRefBatch", L"ISO7BitCharString"}) {
    EXPECT_EQ(numberOf(name), unknown) << narrow(name);
  }
  EXPECT_EQ(numberOf(nullptr), unknown);
  EXPECT_EQ(WideString(identifierToString(static_cast<Identifier>(35))), L"Unknown");
}

TEST(BaseTypeFactory, SupportsEachNumberAsOneKindOnly) {
  const BaseTypeFactory& factory = BaseTypeFactory::instance();
  for (int number = -1; number <= 36; ++number) {
    const auto identifier = static_cast<Identifier>(number);
    const bool known = number >= 0 && number <= 34 && number != unknown;
    const bool collection = number == 0 || number == 1;
    const std::string digits = std::to_string(number);
    const auto simpleLookup = [&] { EXPECT_EQ(factory.lookupSimpleType(identifier).identifier, identifier); };
    const auto collectionLookup = [&] { EXPECT_EQ(factory.lookupCollectionType(identifier).identifier, identifier); };
    EXPECT_EQ(failureOf(simpleLookup), known && !collection ? "none" : "47 Not a simple data type: " + digits);
    EXPECT_EQ(failureOf(collectionLookup), collection ? "none" : "47 Not a collection data type: " + digits);
    EXPECT_EQ(factory.findType(identifier) != nullptr, known) << number;
  }
}

TEST(RequiredStatus, WordsAreReadExactlyAndWrittenBackUnchanged) {
  using MetaMetadata::AttributeRequiredStatus;
  using Status = AttributeRequiredStatus::Status;
  const AttributeRequiredStatus& words = AttributeRequiredStatus::instance();
  const std::pair<const wchar_t*, Status> known[] = {{L"Req", Status::Required},
                                                     {L"Opt", Status::Optional},
                                                     {L"D/req", Status::DecoderRequired},
                                                     {L"E/req", Status::EncoderRequired},
                                                     {L"B.Effort", Status::BestEffort}};
  for (const auto& [word, status] : known) {
    EXPECT_EQ(words.fromString(word), status);
    EXPECT_EQ(WideString(words.toString(status)), word);
  }
  for (const wchar_t* word : {L"", L"req", L"REQ", L"Req ", L" Opt", L"D/Req", L"E/REQ", L"B.effort", L"Re"}) {
    EXPECT_EQ(failureOf([&] { words.fromString(word); }), "16 Unknown required status: " + narrow(word));
  }
}

}  // namespace
}  // namespace MXF::Tessel
