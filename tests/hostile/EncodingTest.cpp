// Bytes that are no text, and texts in other encodings than they say.

#include "support/HostileLoad.h"

#include <gtest/gtest.h>

#include <fstream>

namespace MXF::Tessel::Test {
namespace {

const std::string schema = SchemaBuilder().add(element("A", 1, "Int32")).text();

/// An ASCII text in code units of a number of bytes, the one that counts first or last.
enum class Order { Little, Big };
std::string inUnits(std::size_t bytes, Order order, const std::string& text) {
  const std::string zeros(bytes - 1, '\0');
  return repeated(text.size(),
                  [&](std::size_t i) { return order == Order::Little ? text[i] + zeros : zeros + text[i]; });
}
std::string declared(const std::string& encoding) {
  return "<?xml version='1.0' encoding='" + encoding + "'?>" + schema;
}
std::string malformed(const std::string& rest) {
  return "ParseError (33): F/hostile.xsd:" + rest;
}

TEST(Encodings, AreReadByMarkOrFirstCharactersAndThenAsDeclared) {
  const auto mark = [](std::initializer_list<int> bytes) {
    std::string text;
    for (const int byte : bytes) text += static_cast<char>(byte);
    return text;
  };
  const struct {
    const char* what;
    std::string content;
    std::string expected;
  } cases[] = {
      {"UTF-8 mark", mark({0xEF, 0xBB, 0xBF}) + schema, elementA},
      {"UTF-8 mark twice", mark({0xEF, 0xBB, 0xBF, 0xEF, 0xBB, 0xBF}) + schema,
       malformed("1:1: invalid document structure")},
      {"UTF-8 mark alone", mark({0xEF, 0xBB, 0xBF}), malformed("1:1: invalid document structure")},
      {"UTF-16LE mark", mark({0xFF, 0xFE}) + inUnits(2, Order::Little, schema), elementA},
      {"UTF-16BE mark", mark({0xFE, 0xFF}) + inUnits(2, Order::Big, schema), elementA},
      {"UTF-16LE mark alone", mark({0xFF, 0xFE}), malformed("1:1: invalid document structure")},
      {"UTF-16LE, odd size", mark({0xFF, 0xFE}) + inUnits(2, Order::Little, schema) + "x", elementA},
      {"UTF-16LE by its declaration", inUnits(2, Order::Little, declared("UTF-16")), elementA},
      {"UTF-16BE by its declaration", inUnits(2, Order::Big, declared("UTF-16")), elementA},
      {"UTF-16LE without mark or declaration", inUnits(2, Order::Little, schema),
       malformed("1:2: element name expected")},
      {"UTF-16BE without mark or declaration", inUnits(2, Order::Big, schema),
       malformed("1:1: invalid document structure")},
      {"UTF-32LE by its declaration", inUnits(4, Order::Little, declared("UCS-4")), elementA},
      {"UTF-32BE by its declaration", inUnits(4, Order::Big, declared("UCS-4")), elementA},
      {"UTF-32BE mark", mark({0, 0, 0xFE, 0xFF}) + inUnits(4, Order::Big, declared("UCS-4")), elementA},
      {"UTF-32LE mark", mark({0xFF, 0xFE, 0, 0}) + inUnits(4, Order::Little, declared("UCS-4")), elementA},
      {"UTF-32LE without mark or declaration", inUnits(4, Order::Little, schema),
       malformed("1:2: element name expected")},
      {"UTF-8 declared as UTF-16", declared("UTF-16"), elementA},
      {"UTF-8 declared as UCS-4", declared("UCS-4"), elementA},
      {"UTF-8 declared as EBCDIC", declared("ebcdic-cp-us"), malformed("1:46: invalid document structure")},
      {"UTF-16LE declared as UTF-8", mark({0xFF, 0xFE}) + inUnits(2, Order::Little, declared("UTF-8")),
       malformed("1:40: element name expected")},
      {"UTF-8 mark, declared as UTF-16", mark({0xEF, 0xBB, 0xBF}) + declared("UTF-16"), elementA},
      {"Latin 1", declared("ISO-8859-1"), elementA},
      {"unknown", declared("../../etc/passwd"), malformed("1:48: invalid XML encoding declaration '../../etc/passwd'")},
      {"10,000 characters of name", declared(std::string(10'000, 'x')),
       malformed("1:10034: unable to create converter for 'X{2015}")},
  };
  for (const auto& [what, content, expected] : cases) expectOutcome(what, Load::Dictionary, content, expected);
}

TEST(Encodings, ReportBytesAndCharactersThatAreNone) {
  const std::string surrogateHigh = "\xED\xA0\x80";
  const std::string surrogateLow = "\xED\xB0\x80";
  // The parser shows a byte that is no character as the replacement character.
  const std::string bytes = replaced("1:1: invalid bytes '?' and '?' of a ", "?", "\xEF\xBF\xBD");
  const auto byte = [](const char* rest) {
    return replaced("1:1: invalid byte '?' at position ", "?", "\xEF\xBF\xBD") + rest;
  };
  const std::string reference = ": invalid character reference";
  const auto character = [](const std::string& place, const char* code) {
    return place + ": invalid character 0x" + code;
  };
  const std::string inValue = " in attribute value 'a'";
  const struct {
    const char* what;
    std::string characters;
    std::string inText;
    std::string inAttribute;  ///< Empty if the same.
  } cases[] = {
      {"lone continuation", "\x80", byte("1 of a 1-byte sequence"), ""},
      {"overlong slash", "\xC0\xAF", byte("1 of a 1-byte sequence"), ""},
      {"overlong NUL", "\xC0\x80", byte("1 of a 1-byte sequence"), ""},
      {"overlong in three bytes", "\xE0\x80\xAF", bytes + "3-byte sequence", ""},
      {"overlong in four bytes", "\xF0\x80\x80\xAF", bytes + "4-byte sequence", ""},
      {"encoded surrogate", surrogateHigh, replaced(bytes, "invalid", "irregular") + "3-byte sequence", ""},
      {"encoded surrogate pair", surrogateHigh + surrogateLow,
       replaced(bytes, "invalid", "irregular") + "3-byte sequence", ""},
      {"beyond the last character", "\xF4\x90\x80\x80", bytes + "4-byte sequence", ""},
      {"five bytes", "\xF8\x88\x80\x80\x80", "1:1: exceeded byte limit at byte '\xEF\xBF\xBD' in a 5-byte sequence",
       ""},
      {"never used", "\xFE\xFF", byte("1 of a 6-byte sequence"), ""},
      {"start of two bytes, then text", "\xC3(", "1:1: invalid byte '(' at position 2 of a 2-byte sequence", ""},
      {"NUL", std::string(1, '\0'),
       "1:345: input ended before all started tags were ended; last tag started is 'xs:appinfo'",
       "1:100: unexpected end of input"},
      {"control character", "\x01", character("1:346", "1"), character("1:100", "1") + inValue},
      {"no character", "\xEF\xBF\xBE", character("1:346", "FFFE"), character("1:100", "FFFE") + inValue},
      {"NUL by reference", "&#0;", "1:349" + reference, "1:103" + reference},
      {"high surrogate by reference", "&#xD800;", "1:353" + reference, "1:107" + reference},
      {"surrogate pair by reference", "&#xD83C;&#xDFAC;", "1:353" + reference, "1:107" + reference},
      {"beyond the last character by reference", "&#x110000;", "1:353" + reference, "1:107" + reference},
      {"number that overflows", "&#x100000041;", "1:354" + reference, "1:108" + reference},
      {"number of a million digits", "&#" + std::string(1'000'000, '9') + ";", "1:353" + reference,
       "1:107" + reference},
  };
  for (const auto& [what, characters, inText, inAttribute] : cases) {
    const std::string name = SchemaBuilder().add(element("A", 1, "Int32").note("D:ElementName", characters)).text();
    expectOutcome(what, Load::Dictionary, name, malformed(inText));
    expectOutcome(what, Load::Scheme, SchemaBuilder().set("a", characters).text(),
                  malformed(inAttribute.empty() ? inText : inAttribute));
  }
  expectOutcome(
      "number after a million zeros", Load::Dictionary,
      SchemaBuilder()
          .add(element("A", 1, "Int32").note("D:ElementName", "&#" + std::string(1'000'000, '0') + "65; name"))
          .text(),
      elementA);
  // To the parser a NUL there is the end of the file.
  expectOutcome("NUL after the end", Load::Dictionary, schema + std::string(1, '\0') + "<a>", elementA);
}

TEST(Encodings, OfFilesThatEndTooSoon) {
  const std::string noDocument = "1:1: invalid document structure";
  const std::string noName = "1:2: element name expected";
  const struct {
    std::string content;
    std::string expected;
  } cases[] = {
      {"", noDocument},
      {"<", noName},
      {"<x", "1:3: unexpected end of input"},
      {"<xs:", "1:5: invalid element name 'xs:'"},
      {"<xs:schema", "1:11: unexpected end of input"},
      {"<!--", "1:5: unterminated comment"},
      {"<!DOCTYPE", "1:10: whitespace expected"},
      {"<!DOCTYPE a [", "1:14: invalid document structure"},
      {"<?xml", "1:6: processing instruction cannot start with 'xml'"},
      {"&", noDocument},
      {"x", noDocument},
      {" ", "1:2: invalid document structure"},
      {"\xFF", noDocument},
      {"\xC3", noDocument},
      {"\xEF\xBB", noDocument},
      {"\xFF\xFE<", noDocument},
      {std::string(1, '\0'), noDocument},
      {std::string(1'000'000, '\0'), noDocument},
  };
  for (const auto& [content, expected] : cases) {
    for (const Load load : {Load::Multiplex, Load::Dictionary, Load::Scheme}) {
      expectOutcome(content, load, content, malformed(expected));
    }
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
