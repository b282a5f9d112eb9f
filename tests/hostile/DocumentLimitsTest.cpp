// Limits of one document: exactly at the limit it is read, one more is refused with the place. Shapes beside them that
// cost in proportion to their size.

#include "support/HostileLoad.h"

#include <gtest/gtest.h>

#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace MXF::Tessel::Test {
namespace {

/// A schema that declares the element A, with attributes at the root and content at its end.
std::string schemaWith(const std::string& content, const std::string& rootAttributes = "") {
  std::string text = SchemaBuilder().add(element("A", 1, "Int32")).text();
  text.insert(text.find(" xmlns"), rootAttributes);
  return text.insert(text.rfind("</"), content);
}

TEST(DocumentLimits, NestingOfElements) {
  const auto nested = [](std::size_t levels) { return schemaWith(times(levels, "<a>") + times(levels, "</a>")); };
  expectOutcome("at the limit", Load::Dictionary, nested(255), elementA);
  expectOutcome("one more", Load::Dictionary, nested(256), limitExceeded("1:1161", "256 levels of nested elements"));
  expectOutcome("a million", Load::Dictionary, nested(1'000'000),
                limitExceeded("1:1161", "256 levels of nested elements"));
  for (const Load load : {Load::Multiplex, Load::Scheme}) {
    expectOutcome("in other schemas", load, nested(256), limitExceeded("1:1161", "256 levels of nested elements"));
  }
}

TEST(DocumentLimits, AttributesOfAnElement) {
  const auto attributes = [](std::size_t count) {
    return repeated(count, [](std::size_t i) { return numbered(" a", i) + "=''"; });
  };
  // The namespace declarations of the root and its target namespace are attributes too.
  expectOutcome("at the limit", Load::Dictionary, schemaWith("", attributes(997)), elementA);
  expectOutcome("one more", Load::Dictionary, schemaWith("", attributes(998)),
                limitExceeded("1:7970", "1000 attributes of an element"));
  expectOutcome("100,000 at the root", Load::Dictionary, schemaWith("", attributes(100'000)),
                limitExceeded("1:114689", "1000 attributes of an element"));
  expectOutcome("100,000 at another element", Load::Scheme, schemaWith("<a" + attributes(100'000) + "/>"),
                limitExceeded("1:114689", "1000 attributes of an element"));
  // The parser's hash tables take all of these names for the same.
  std::vector<std::string> alike = {""};
  while (alike.size() < 100'000) {
    std::vector<std::string> longer;
    for (const std::string& name : alike) {
      for (const char* part : {"Az", "BT", "C."}) longer.push_back(name + part);
    }
    alike = std::move(longer);
  }
  expectOutcome("that look alike", Load::Multiplex,
                schemaWith("<a" + repeated(alike.size(), [&](std::size_t i) { return " " + alike[i] + "=''"; }) + "/>"),
                limitExceeded("1:294913", "1000 attributes of an element"));
}

TEST(DocumentLimits, AttributesOfTypeID) {
  const auto identifiers = [](std::size_t count) {
    const std::string text = schemaWith(repeated(count, [](std::size_t i) { return numbered("<b i='a", i) + "'/>"; }));
    return "<!DOCTYPE xs:schema [<!ATTLIST b i ID #IMPLIED>]>" + text;
  };
  expectOutcome("at the limit", Load::Dictionary, identifiers(10'000), elementA);
  expectOutcome("one more", Load::Scheme, identifiers(10'001),
                limitExceeded("1:139347", "10000 attributes of type ID"));
}

TEST(DocumentLimits, NamespaceDeclarations) {
  const auto prefixes = [](std::size_t count, const std::string& uri) {
    return repeated(count, [&](std::size_t i) { return " xmlns:p" + std::to_string(i) + "='" + uri + "'"; });
  };
  expectOutcome("at the limit of an element", Load::Dictionary, schemaWith("<a" + prefixes(1'000, "u") + "/>"),
                elementA);
  expectOutcome("one more", Load::Dictionary, schemaWith("<a" + prefixes(1'001, "u") + "/>"),
                limitExceeded("1:15303", "1000 namespace declarations of an element"));
  expectOutcome("100,000 at the root", Load::Dictionary, schemaWith("", prefixes(100'000, "u")),
                limitExceeded("1:180225", "1000 attributes of an element"));
  const auto elements = [](std::size_t count) { return times(count, "<a xmlns:p='u'/>"); };
  expectOutcome("at the limit of a document", Load::Dictionary, schemaWith(elements(99'998)), elementA);
  expectOutcome("one more", Load::Dictionary, schemaWith(elements(99'999)),
                limitExceeded("1:1600377", "100000 namespace declarations"));
  expectOutcome("of different namespaces", Load::Scheme,
                schemaWith(repeated(99'000, [](std::size_t i) { return "<a xmlns='" + numbered("u", i) + "'/>"; })),
                limitExceeded("1:344697", "1000000000 characters of namespace names that are compared"));
  // Every element looks through all that is declared around it.
  const std::string around = times(250, "<a" + prefixes(390, "u") + ">");
  expectOutcome("looked through", Load::Scheme, schemaWith(around + times(20'000, "<b/>") + times(250, "</a>")),
                limitExceeded("1:660838", "1000000000 comparisons with declared prefixes"));
}

TEST(DocumentLimits, NamesOfNamespaces) {
  const auto naming = [](std::size_t length, const std::string& content) {
    return schemaWith(content, " xmlns:u='" + std::string(length, 'u') + "'");
  };
  expectOutcome("at the limit", Load::Dictionary, naming(4'096, ""), elementA);
  expectOutcome("longer", Load::Dictionary, naming(4'097, ""),
                limitExceeded("1:4204", "4096 characters in a namespace name"));
  expectOutcome("ten million", Load::Scheme, naming(10'000'000, ""),
                limitExceeded("1:10000107", "4096 characters in a namespace name"));
  const std::string compared = "1000000000 characters of namespace names that are compared";
  expectOutcome("of elements", Load::Dictionary, naming(4'096, times(1'000'000, "<u:a/>")),
                limitExceeded("1:1469310", compared));
  expectOutcome("of attributes", Load::Dictionary, naming(4'096, times(1'000'000, "<a u:b=''/>")),
                limitExceeded("1:2689985", compared));
}

TEST(DocumentLimits, DifferentNames) {
  const auto names = [](std::size_t count) {
    return repeated(count, [](std::size_t i) { return "<" + numbered("b", i) + "/>"; });
  };
  // The schema itself has ten.
  expectOutcome("at the limit", Load::Dictionary, schemaWith(names(1'990)), elementA);
  expectOutcome("one more", Load::Dictionary, schemaWith(names(1'991)),
                limitExceeded("1:15211", "2000 different names of elements and attributes"));
  expectOutcome("of attributes", Load::Dictionary,
                schemaWith(repeated(500'000, [](std::size_t i) { return "<b " + numbered("a", i) + "=''/>"; })),
                limitExceeded("1:25153", "2000 different names of elements and attributes"));
}

TEST(DocumentLimits, FileSize) {
  constexpr off_t limit = off_t{64} << 20U;
  const std::string tooLarge = "F/large.xsd: Limit exceeded: more than 67108864 bytes in a file";
  for (const Load load : {Load::Multiplex, Load::Dictionary, Load::Scheme}) {
    HostileFiles files;
    const std::string path = files.write("large.xsd", SchemaBuilder().add(element("A", 1, "Int32")).text() + "<!--");
    // A hole in a file reads as NUL characters.
    ASSERT_EQ(truncate(path.c_str(), limit), 0);
    EXPECT_EQ(files.outcome(load, "large.xsd"), "ParseError (33): F/large.xsd:1:410: unterminated comment");
    for (const off_t size : {limit + 1, off_t{1} << 40U}) {
      ASSERT_EQ(truncate(path.c_str(), size), 0);
      EXPECT_EQ(files.outcome(load, "large.xsd"), "IOError (26): " + tooLarge) << size;
    }
  }
  std::string blanks = SchemaBuilder().add(element("A", 1, "Int32")).text();
  blanks.resize(limit, ' ');
  expectOutcome("at the limit", Load::Dictionary, blanks, elementA);
}

TEST(DocumentLimits, Nodes) {
  const Budget twoGiB{std::size_t{2} << 30U};
  const std::string limit = "4000000 elements, attributes, texts and other nodes";
  // The schema itself has fourteen.
  const struct {
    const char* what;
    std::string content;
    const char* placeOfOneMore;
  } cases[] = {
      {"attributes", times(799'997, "<a b='' c='' d='' e=''/>") + "<a/>", "1:19200329"},
      {"all else", times(999'996, "<a/>x<!----><?b?>") + "<a/><a/>", "1:17000337"},
  };
  for (const auto& [what, content, placeOfOneMore] : cases) {
    expectOutcome(what, Load::Dictionary, schemaWith(content), elementA, twoGiB);
    expectOutcome(what, Load::Dictionary, schemaWith(content + "<a/>"), limitExceeded(placeOfOneMore, limit), twoGiB);
  }
}

TEST(DocumentLimits, ManyNodesAndLongTextsCostInProportion) {
  constexpr std::size_t large = 10'000'000;
  const struct {
    const char* what;
    std::string content;
  } cases[] = {
      {"a million processing instructions", times(1'000'000, "<?a b?>")},
      {"CDATA sections", "<a>" + times(500'000, "<![CDATA[]]>") + "</a>"},
      {"texts and comments in turn", "<a>" + times(500'000, "x<!---->") + "</a>"},
      {"character references", "<a>" + times(1'000'000, "&lt;") + "</a>"},
      {"long text", "<a>" + std::string(large, 'n') + "</a>"},
      {"long CDATA section", "<a><![CDATA[" + std::string(large, 'n') + "]]></a>"},
      {"long comment", "<!--" + std::string(large, 'n') + "-->"},
      {"long processing instruction", "<?a " + std::string(large, 'n') + "?>"},
      {"long name", "<" + std::string(large, 'n') + "/>"},
      {"long attribute name", "<a " + std::string(large, 'n') + "='1'/>"},
      {"long attribute value", "<a b='" + std::string(large, 'n') + "'/>"},
      {"long prefix", "<a xmlns:" + std::string(large, 'n') + "='u'/>"},
  };
  for (const auto& [what, content] : cases) expectOutcome(what, Load::Dictionary, schemaWith(content), elementA);
}

}  // namespace
}  // namespace MXF::Tessel::Test
