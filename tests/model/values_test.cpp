// Values: text forms in and out, typed access, and the bytes that serialize() writes.

#include "support.h"

#include <Types/Types.h>

#include <gtest/gtest.h>

#include <climits>
#include <cwctype>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace MXF::Tessel::Types {
namespace {

using Templates::auto_ptr;
using Templates::WideString;
using Test::failureOf;
using Test::narrow;

constexpr auto form = StringRepresentationEncodingType::DottedHex;

/// What the text means to the class, in text form 0, or the failure.
template <class Identifier>
std::string readBack(const WideString& text) {
  std::string result;
  const std::string failure = failureOf([&] { result = narrow(Identifier(text.c_str(), form).toString(form)); });
  return failure == "none" ? result : failure;
}

std::string hex(const unsigned char* bytes, std::size_t count, const char* separator = "") {
  const char* const digits = "0123456789ABCDEF";
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    if (i != 0) text += separator;
    text += {digits[bytes[i] / 16], digits[bytes[i] % 16]};
  }
  return text;
}

/// Digits of `count` different bytes with a separator between bytes.
WideString digits(std::size_t count, const char* separator) {
  std::vector<unsigned char> bytes(count);
  for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<unsigned char>(i * 29 + 0xA7);
  return Utils::stringToWstring(hex(bytes.data(), count, separator).c_str());
}
WideString lower(WideString text) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
  return text;
}

struct TextCase {
  std::string (*readBack)(const WideString&);
  std::string result;
  std::vector<WideString> texts;
};

TEST(TextForms, EveryNotationIsReadInAnyCaseAndWrittenInFormZero) {
  const std::string label = "06.0E.2B.34.01.01.01.02.03.01.02.01.02.00.AB.CD";
  const std::string uuid = "12.34.56.78.9A.BC.DE.F0.01.23.45.67.89.AB.CD.EF";
  const WideString umid32 = digits(32, "");
  const WideString umid64 = digits(64, "");
  const TextCase cases[] = {
      {&readBack<KLV::Key>, label, {L"06.0e.2B.34.01.01.01.02.03.01.02.01.02.00.aB.Cd"}},
      {&readBack<UniversalLabel>,
       label,
       {L"06.0e.2B.34.01.01.01.02.03.01.02.01.02.00.aB.Cd", L"urn:smpte:ul:060e2B34.01010102.03010201.0200aBCd",
        L"URN:Smpte:UL:060E2B34.01010102.03010201.0200ABCD"}},
      {&readBack<UUID>,
       uuid,
       {L"12.34.56.78.9a.bC.De.F0.01.23.45.67.89.AB.CD.EF", L"12345678-9aBc-DEF0-0123-456789abCDEF",
        L"uRN:UUID:12345678-9aBc-DEF0-0123-456789abCDEF"}},
      {&readBack<UMID32>,
       narrow(digits(32, ".")),
       {lower(digits(32, ".")), umid32, lower(umid32), L"0x" + lower(umid32), L"0X" + umid32}},
      {&readBack<UMID64>,
       narrow(digits(64, ".")),
       {lower(digits(64, ".")), umid64, lower(umid64), L"0x" + lower(umid64), L"0X" + umid64}},
      {&readBack<LocalTag>, "3C.0A", {L"3c.0A", L"3C0a", L"0x3c0a", L"0X3C0A"}},
  };
  for (const auto& row : cases) {
    for (const WideString& text : row.texts) EXPECT_EQ(row.readBack(text), row.result) << narrow(text);
  }
}

TEST(TextForms, NearMissesAreRefusedWithTheirText) {
  const WideString label = digits(16, ".");
  const TextCase cases[] = {
      {&readBack<UniversalLabel>,
       "25 ",
       {L"", digits(15, "."), digits(17, "."), label + L" ", L" " + label, label.substr(0, 46) + L"G",
        label.substr(0, 46) + L"\x0661", digits(16, ":"), digits(16, ""), L"urn:smpte:ul:" + label,
        L"060E2B34.01010102.03010201.0200ABCD", L"urn:smpte:ul:060E2B34.01010102.03010201.0200ABCDEF"}},
      {&readBack<KLV::Key>,
       "25 ",
       {label.substr(0, 46), digits(16, "-"), L"urn:smpte:ul:060E2B34.01010102.03010201.0200ABCD"}},
      {&readBack<UUID>,
       "16 Invalid UUID: ",
       {digits(16, ""), L"urn:uuid:" + label, L"{12345678-9ABC-DEF0-0123-456789ABCDEF}",
        L"123456789-ABC-DEF0-0123-456789ABCDEF", L"12345678-9ABC-DEF0-0123-456789ABCDE"}},
      {&readBack<UMID32>,
       "16 Invalid UMID: ",
       {digits(31, ""), digits(64, ""), L"0x" + digits(32, "."), L"x" + digits(32, "")}},
      {&readBack<UMID64>, "16 Invalid UMID: ", {digits(32, "."), digits(64, "") + L"0", digits(64, ".") + L"."}},
      {&readBack<LocalTag>,
       "16 Invalid local tag: ",
       {L"", L"0x", L"3C0", L"3C0A0", L"3C-0A", L"0x3C.0A", L"0x0x3C0A", L" 3C0A"}},
  };
  for (const auto& row : cases) {
    for (const WideString& text : row.texts) EXPECT_EQ(row.readBack(text), row.result + narrow(text));
  }
}

TEST(Labels, AreOrderedByUnsignedBytesAndConvertToAndFromKeys) {
  const UniversalLabel low(L"7F.FF.FF.FF.FF.FF.FF.FF.FF.FF.FF.FF.FF.FF.FF.FF", form);
  const UniversalLabel high(L"80.00.00.00.00.00.00.00.00.00.00.00.00.00.00.00", form);
  EXPECT_TRUE(low < high);
  EXPECT_FALSE(high < low);
  EXPECT_FALSE(low < low);
  EXPECT_TRUE(low.key() < high.key());
  EXPECT_TRUE(LocalTag(L"7FFF", form) < LocalTag(L"8000", form));
  EXPECT_EQ(UniversalLabel(low.key()), low);
  EXPECT_EQ(low[0], 0x7F);
  EXPECT_EQ(high[15], 0x00);
  EXPECT_EQ(failureOf([&] { (void)low[16]; }).substr(0, 3), "31 ");
  EXPECT_EQ(failureOf([&] { (void)low[-1]; }).substr(0, 3), "31 ");
}

std::string wireForm(const BaseType& value) {
  DataIO::BufferSink sink;
  value.serialize(sink);
  return hex(sink.bytes().data(), sink.bytes().size());
}

using Test::OverloadRecorder;
using ConstRecorder =
    OverloadRecorder<Visitors::Visitor, const Array, const Batch, const Boolean, const Int8, const Int16, const Int32,
                     const Int64, const UInt8, const UInt16, const UInt32, const UInt64, const Length, const Position,
                     const ISO7String, const UTF16, const UTF16String, const Rational, const RGBALayout, const LocalTag,
                     const UniversalLabel, const UUID, const UMID32, const UMID64>;
using NonConstRecorder =
    OverloadRecorder<Visitors::NonConstVisitor, Array, Batch, Boolean, Int8, Int16, Int32, Int64, UInt8, UInt16, UInt32,
                     UInt64, Length, Position, ISO7String, UTF16, UTF16String, Rational, RGBALayout, LocalTag,
                     UniversalLabel, UUID, UMID32, UMID64>;

const std::type_info& classOf(const BaseType& value) {
  return typeid(value);
}

/// Both visitors are sent to the overload of the value's own class, once.
void expectOwnOverload(BaseType& value) {
  NonConstRecorder changing;
  value.accept(changing);
  ConstRecorder reading;
  static_cast<const BaseType&>(value).accept(reading);
  EXPECT_EQ(changing.calls, 1);
  EXPECT_EQ(reading.calls, 1);
  EXPECT_TRUE(*changing.called == typeid(value)) << changing.called->name();
  EXPECT_TRUE(*reading.called == typeid(value)) << reading.called->name();
}

auto_ptr<RGBALayout> exampleLayout() {
  auto_ptr<RGBALayout> layout(new RGBALayout);
  layout->set(0, {'R', 10});
  layout->set(7, {0xFF, 1});
  return layout;
}

TEST(WireForm, OfEachSimpleTypeIsBigEndianAndSurvivesCloning) {
  const struct {
    auto_ptr<SimpleDataType> value;
    std::string bytes;
  } cases[] = {
      {std::make_unique<Boolean>(true), "01"},
      {std::make_unique<Boolean>(false), "00"},
      {std::make_unique<Int8>(SCHAR_MIN), "80"},
      {std::make_unique<Int16>(-2), "FFFE"},
      {std::make_unique<Int32>(INT_MIN), "80000000"},
      {std::make_unique<Int64>(-0x0123456789ABCDEF), "FEDCBA9876543211"},
      {std::make_unique<UInt8>(0xFE), "FE"},
      {std::make_unique<UInt16>(0xFEDC), "FEDC"},
      {std::make_unique<UInt32>(0xFEDCBA98U), "FEDCBA98"},
      {std::make_unique<UInt64>(0xFEDCBA9876543210ULL), "FEDCBA9876543210"},
      {std::make_unique<Length>(-1), "FFFFFFFFFFFFFFFF"},
      {std::make_unique<Position>(0x0102030405060708), "0102030405060708"},
      {std::make_unique<ISO7String>("Az\x7F"), "417A7F"},
      {std::make_unique<ISO7String>(""), ""},
      {std::make_unique<UTF16>(L'\xFFFE'), "FFFE"},
      {std::make_unique<UTF16String>(L"A\x20AC\xD83D"), "004120ACD83D"},
      {std::make_unique<UTF16String>(L"\x1F600"), "D83DDE00"},
      {std::make_unique<Rational>(-30000, 1001), "FFFF8AD0000003E9"},
      {std::make_unique<RGBALayout>(), std::string(32, '0')},
      {exampleLayout(), "520A" + std::string(24, '0') + "FF01"},
      {std::make_unique<LocalTag>(L"3C0A", form), "3C0A"},
      {std::make_unique<UniversalLabel>(digits(16, ".").c_str(), form), narrow(digits(16, ""))},
      {std::make_unique<UUID>(digits(16, ".").c_str(), form), narrow(digits(16, ""))},
      {std::make_unique<UMID32>(digits(32, ".").c_str(), form), narrow(digits(32, ""))},
      {std::make_unique<UMID64>(digits(64, ".").c_str(), form), narrow(digits(64, ""))},
  };
  for (const auto& [value, bytes] : cases) {
    SCOPED_TRACE(classOf(*value).name());
    EXPECT_EQ(wireForm(*value), bytes);
    EXPECT_EQ(hex(value->rawBuffer(), value->serializedSize()), bytes);
    const auto_ptr<SimpleDataType> clone = value->clone();
    EXPECT_EQ(wireForm(*clone), bytes);
    EXPECT_TRUE(classOf(*clone) == classOf(*value));
    expectOwnOverload(*value);
  }
}

TEST(TypedAccess, GivesBackWhatWasPutIn) {
  EXPECT_EQ(Int8(SCHAR_MIN).value(), SCHAR_MIN);
  EXPECT_EQ(Int64(LLONG_MIN).value(), LLONG_MIN);
  EXPECT_EQ(UInt64(ULLONG_MAX).value(), ULLONG_MAX);
  EXPECT_EQ(Rational(-30000, 1001).numerator(), -30000);
  EXPECT_EQ(Rational(30000, -1001).denominator(), -1001);
  EXPECT_EQ(UTF16(L'\xFFFE').value(), L'\xFFFE');
  EXPECT_EQ(WideString(UTF16String(L"\x1F600!").value()), L"\xD83D\xDE00!");
  EXPECT_EQ(exampleLayout()->get(7).code, 0xFF);
  EXPECT_EQ(exampleLayout()->get(0).depth, 10);
}

TEST(Collections, WriteCountAndItemLengthBeforeTheItemsAndCloneThem) {
  Array numbers(4);
  numbers.append(std::make_unique<Int32>(-1));
  numbers.append(std::make_unique<Int32>(2));
  EXPECT_EQ(wireForm(numbers), "0000000200000004FFFFFFFF00000002");
  EXPECT_EQ(numbers.serializedSize(), 16U);
  expectOwnOverload(numbers);

  auto_ptr<Collection> batch(new Batch(4));
  EXPECT_EQ(wireForm(*batch), "0000000000000004");
  batch->append(std::make_unique<UInt8>(7));
  const auto_ptr<Collection> clone = batch->clone();
  batch.reset();
  EXPECT_EQ(wireForm(*clone), "000000010000000107");  // the item's own length counts, not the announced one
  EXPECT_EQ(clone->elementSize(), 4);
  EXPECT_EQ(dynamic_cast<const UInt8&>(clone->at(0)).value(), 7);
  expectOwnOverload(*clone);
}

template <class... Items>
auto_ptr<BaseType> arrayOf(Items... items) {
  auto_ptr<Collection> array(new Array(0));
  (array->append(std::move(items)), ...);
  return array;
}

TEST(WireForm, ValueThatHasNoneIsRefusedAndNothingIsWritten) {
  const auto text = [](std::size_t length) { return std::make_unique<ISO7String>(std::string(length, 'x').c_str()); };
  const auto_ptr<BaseType> values[] = {
      text(65536),
      std::make_unique<UTF16String>(WideString(32768, L'x').c_str()),
      arrayOf(text(1), text(2)),
      arrayOf(text(1), text(65536)),
      arrayOf(text(65536)),
  };
  for (const auto& value : values) {
    DataIO::BufferSink sink;
    EXPECT_EQ(failureOf([&] { value->serialize(sink); }).substr(0, 3), "16 ") << &value - std::begin(values);
    EXPECT_TRUE(sink.bytes().empty());
  }
  EXPECT_EQ(text(65535)->serializedSize(), 65535);
  EXPECT_EQ(UTF16String(WideString(32767, L'x').c_str()).serializedSize(), 65534);
}

TEST(Values, RefuseWhatTheyCannotHold) {
  Array array(1);
  RGBALayout layout;
  const struct {
    std::function<void()> action;
    std::string failure;
  } cases[] = {
      {[] { (void)ISO7String("caf\xC3\xA9"); }, "16 Not an ISO 7-bit text: caf\xC3\xA9"},
      {[] { (void)ISO7String("\x80"); }, "16 Not an ISO 7-bit text: \x80"},
      {[&] { layout.set(8, RGBALayout::RGBAComponent()); }, "16 RGBALayout has 8 components, no component 8"},
      {[&] { (void)layout.get(UINT_MAX); }, "16 RGBALayout has 8 components, no component 4294967295"},
      {[&] { array.append(nullptr); }, "16 A collection cannot hold an empty item."},
      {[&] { (void)array.at(0); }, "31 The collection has no item 0"},
  };
  for (const auto& row : cases) EXPECT_EQ(failureOf(row.action), row.failure);
  EXPECT_EQ(wireForm(array), "0000000000000001");
  EXPECT_EQ(wireForm(layout), std::string(32, '0'));
  EXPECT_EQ(failureOf([] { (void)UTF16(L'\x1F600'); }).substr(0, 3), "16 ");
}

}  // namespace
}  // namespace MXF::Tessel::Types
