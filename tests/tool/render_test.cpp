// Values and texts in both formats, those included that no schema can bring about.

#include "json/JsonText.h"
#include "json/ValueJson.h"
#include "text/IdentifierForm.h"
#include "text/Unicode.h"
#include "text/ValueText.h"

#include <Types/Types.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <memory>
#include <utility>

namespace MXF::Tessel::Tool {
namespace {

using Templates::WideString;

std::string hexText(std::size_t bytes, const std::string& separator = ".") {
  std::string text = "A0";
  while (--bytes > 0) text += separator + "A0";
  return text;
}

WideString wideHexText(std::size_t bytes) {
  const std::string text = hexText(bytes);
  return {text.begin(), text.end()};
}

template <class Collection, class... Items>
std::unique_ptr<Types::BaseType> collection(int elementSize, Items... items) {
  auto value = std::make_unique<Collection>(elementSize);
  (value->append(items.clone()), ...);
  return value;
}

struct ValueCase {
  std::unique_ptr<Types::BaseType> value;
  std::string json;  // without line breaks and blanks between members
  std::string text;
};

template <class Value, class... Arguments>
ValueCase single(int dataType, const std::string& json, const std::string& text, Arguments... arguments) {
  return {std::make_unique<Value>(arguments...),
          "{\"dataType\":" + std::to_string(dataType) + ",\"value\":" + json + "}", text};
}

template <class Value>
ValueCase identifier(int dataType, std::size_t bytes) {
  return single<Value>(dataType, '"' + hexText(bytes) + '"', hexText(bytes), wideHexText(bytes).c_str(), textForm);
}

std::vector<ValueCase> valueCases() {
  std::vector<ValueCase> cases;
  cases.push_back(single<Types::Boolean>(2, "true", "true", true));
  cases.push_back(single<Types::Int16>(5, "-32768", "-32768", static_cast<short>(-32768)));
  cases.push_back(single<Types::Int32>(6, "-1", "-1", -1));
  cases.push_back(
      single<Types::Int64>(7, "-9223372036854775808", "-9223372036854775808", std::numeric_limits<long long>::min()));
  cases.push_back(single<Types::Int8>(8, "-128", "-128", static_cast<signed char>(-128)));
  cases.push_back(single<Types::ISO7String>(9, R"("a\"\u001b")", R"("a\"\u001b")", "a\"\x1B"));
  cases.push_back(single<Types::Length>(11, "-1", "-1", -1));
  cases.push_back(identifier<Types::LocalTag>(12, 2));
  cases.push_back(
      single<Types::Position>(13, "9223372036854775807", "9223372036854775807", std::numeric_limits<long long>::max()));
  cases.push_back({std::make_unique<Types::Rational>(-30000, 0),
                   R"({"dataType":15,"numerator":-30000,"denominator":0})", "-30000/0"});
  cases.push_back(single<Types::UInt16>(17, "65535", "65535", static_cast<unsigned short>(65535)));
  cases.push_back(single<Types::UInt32>(18, "4294967295", "4294967295", 4294967295U));
  cases.push_back(single<Types::UInt64>(19, "18446744073709551615", "18446744073709551615",
                                        std::numeric_limits<unsigned long long>::max()));
  cases.push_back(single<Types::UInt8>(20, "255", "255", static_cast<unsigned char>(255)));
  cases.push_back(identifier<Types::UMID32>(21, 32));
  cases.push_back(identifier<Types::UMID64>(22, 64));
  cases.push_back(identifier<Types::UniversalLabel>(23, 16));
  cases.push_back(single<Types::UTF16>(25, R"("\udfff")", R"("\udfff")", L'\xDFFF'));
  cases.push_back(single<Types::UTF16String>(26, "\"\xC3\xA9\"", "\"\xC3\xA9\"", L"\xE9"));
  cases.push_back(identifier<Types::UUID>(27, 16));

  auto layout = std::make_unique<Types::RGBALayout>();
  layout->set(0, {'R', 10});
  layout->set(7, {200, 255});
  std::string components = R"({"code":82,"depth":10},)";
  for (int i = 1; i < 7; ++i) components += R"({"code":0,"depth":0},)";
  cases.push_back({std::move(layout), R"({"dataType":34,"components":[)" + components + R"({"code":200,"depth":255}]})",
                   "{R 10, 0 0, 0 0, 0 0, 0 0, 0 0, 0 0, 200 255}"});

  cases.push_back({collection<Types::Array>(4), R"({"dataType":0,"elementSize":4,"items":[]})", "{}"});
  cases.push_back({collection<Types::Batch>(8, Types::Rational(1, 2), Types::Int8(3)),
                   R"({"dataType":1,"elementSize":8,"items":[{"dataType":15,"numerator":1,"denominator":2},)"
                   R"({"dataType":8,"value":3}]})",
                   "{1/2, 3}"});
  return cases;
}

std::string onOneLine(const std::string& json) {
  std::string line;
  bool inString = false;
  for (std::size_t i = 0; i < json.size(); ++i) {
    if (json[i] == '"' && (i == 0 || json[i - 1] != '\\')) inString = !inString;
    if (inString || (json[i] != ' ' && json[i] != '\n')) line += json[i];
  }
  return line;
}

TEST(Values, InBothFormats) {
  for (const ValueCase& row : valueCases()) {
    EXPECT_EQ(onOneLine(writeJson(valueJson(*row.value))), row.json);
    EXPECT_EQ(encode(valueText(*row.value)), row.text) << row.json;
  }
}

TEST(JsonStrings, LoneSurrogatesAndWhatTerminalsActOnAreEscaped) {
  struct {
    WideString text;
    const char* json;
  } const cases[] = {
      {L"", R"("")"},
      {L"\xD83D", R"("\ud83d")"},
      {L"\xD83D\xDE00", "\"\xF0\x9F\x98\x80\""},               // a pair is a character
      {L"\xDE00\xD83D", R"("\ude00\ud83d")"},                  // the wrong way round it is not
      {L"\xD83D\xD83D\xDE00", "\"\\ud83d\xF0\x9F\x98\x80\""},  // the second one starts a pair
      {L"a\xDBFFz\xDC00", R"("a\udbffz\udc00")"},              //
      {L"\xD7FF\xE000\xED20",
       "\"\xED\x9F\xBF\xEE\x80\x80\xEE\xB4\xA0\""},  // next to the surrogates, or similar to them
      {L"\x9B\u202E\u2066\u2010\u2029", "\"\\u009b\\u202e\\u2066\xE2\x80\x90\\u2029\""},
      {L"\\ud83d", R"("\\ud83d")"},  // a text that looks like an escape
      {L"\"\\/\n\t\x01\x7F\x2028", "\"\\\"\\\\/\\n\\t\\u0001\\u007f\\u2028\""},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(quoted(row.text), row.json);
    const Json object = {{jsonString(row.text).get<std::string>(), jsonString(row.text)}};
    EXPECT_EQ(writeJson(object), "{\n  " + std::string(row.json) + ": " + row.json + "\n}\n");
  }
}

}  // namespace
}  // namespace MXF::Tessel::Tool
