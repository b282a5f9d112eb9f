// Imports: which files a location reaches, and very many of them.

#include "loader/support/Loading.h"
#include "support/HostileLoad.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <utility>

namespace MXF::Tessel::Test {
namespace {

namespace fs = std::filesystem;

/// A scheme with a group whose base type is looked for in the imports, and the import that has it.
SchemaBuilder schemeWith(const std::string& imports) {
  return SchemaBuilder()
      .set("xmlns:b", "urn:b")
      .add(imports)
      .add(group("G", 1))
      .add(complexType("GType", "", "b:Base"));
}
SchemaBuilder baseDocument(const std::string& name = "Base") {
  return SchemaBuilder().target("urn:b").set("xmlns:t", "urn:t").add(complexType(name, property("t:A")));
}
std::string fileNotFound(const std::string& path) {
  return "IOError (26): " + path + " file Not Found!";
}
const std::string noBase = dataMissing("Type b:Base, base type for t:GType, was not found");
const std::string oneAttribute = "K01\n  L01 Opt\n";

TEST(Imports, ReachRegularFilesFromTheFolderOfTheSchemeOnly) {
  const struct {
    const char* what;
    std::string location;
    std::string expected;
  } cases[] = {
      {"beside", "b.xsd", oneAttribute},
      {"outside", "../outside/b.xsd", oneAttribute},
      {"from the root of the file system", times(100, "../") + "etc/passwd",
       "SAXParseException: F/in/" + times(100, "../") + "etc/passwd:1:1: invalid document structure"},
      {"absolute", "/etc/passwd", fileNotFound("F/in//etc/passwd")},
      {"link", "link.xsd", oneAttribute},
      {"link to nothing", "dangling.xsd", fileNotFound("F/in/dangling.xsd")},
      {"link to itself", "loop.xsd", fileNotFound("F/in/loop.xsd")},
      {"folder", ".", fileNotFound("F/in/.")},
      {"nothing", "", fileNotFound("F/in/")},
      {"pipe", "pipe", fileNotFound("F/in/pipe")},
      {"endless device", "zero", fileNotFound("F/in/zero")},
      {"empty device", "null", fileNotFound("F/in/null")},
      {"random device by its path", times(100, "../") + "dev/urandom",
       fileNotFound("F/in/" + times(100, "../") + "dev/urandom")},
      {"the scheme itself", "hostile.xsd", noBase},
      {"percent escape", "%62.xsd", fileNotFound("F/in/%62.xsd")},
      {"file URI", "file:///etc/passwd", fileNotFound("F/in/file:///etc/passwd")},
      {"network URI", "http://127.0.0.1:9/b.xsd", fileNotFound("F/in/http://127.0.0.1:9/b.xsd")},
      {"backslash", "..\\outside\\b.xsd", fileNotFound("F/in/..\\outside\\b.xsd")},
      {"beyond the longest path", times(100'000, "./") + "b.xsd",
       fileNotFound("F/in/" + times(100'000, "./") + "b.xsd")},
      {"long name", std::string(10'000'000, 'b'), fileNotFound("F/in/b{10000000}")},
  };
  HostileFiles files;
  for (const char* file : {"in/b.xsd", "outside/b.xsd"}) files.write(file, baseDocument().text());
  for (const auto& [link, target] : {std::pair("link.xsd", "b.xsd"),
                                     {"dangling.xsd", "gone.xsd"},
                                     {"loop.xsd", "loop.xsd"},
                                     {"zero", "/dev/zero"},
                                     {"null", "/dev/null"}}) {
    fs::create_symlink(target, files.path(std::string("in/") + link));
  }
  ASSERT_EQ(mkfifo(files.path("in/pipe").c_str(), S_IRUSR | S_IWUSR), 0);
  for (const auto& [what, location, expected] : cases) {
    files.write("in/hostile.xsd", schemeWith(import("urn:b", location)).text());
    EXPECT_EQ(files.outcome(Load::Scheme, "in/hostile.xsd"), expected) << what;
  }
}

TEST(Imports, OfOneFileCountOnceForEachPath) {
  const auto many = [](const std::string& location) { return times(100'000, import("urn:b", location)); };
  expectOutcome("missing", Load::Scheme, schemeWith(many("gone.xsd")).text(), fileNotFound("F/gone.xsd"));

  HostileFiles files;
  files.write("b.xsd", baseDocument().text());
  files.write("other.xsd", baseDocument("Other").text());
  const auto outcome = [&](const SchemaBuilder& scheme) {
    files.write("hostile.xsd", scheme.text());
    return files.outcome(Load::Scheme, "hostile.xsd");
  };
  EXPECT_EQ(outcome(schemeWith(many("b.xsd"))), oneAttribute);
  EXPECT_EQ(outcome(schemeWith(many("other.xsd"))), noBase);
  const auto spelled = [](std::size_t count) {
    return repeated(
        count, [](std::size_t i) { return import("urn:b", times(i % 100, "./") + times(i / 100, "/") + "other.xsd"); });
  };
  // Each of them counts two kilobytes at least.
  EXPECT_EQ(outcome(schemeWith(spelled(16'384))), noBase);
  EXPECT_EQ(outcome(schemeWith(spelled(16'385))), loadLimitExceeded("33554432 bytes of imported files"));
}

TEST(Imports, AreLimitedInTheirBytes) {
  HostileFiles files;
  constexpr std::size_t size = std::size_t{16} << 20U;
  std::string text = baseDocument("Other").text();
  text.resize(size, ' ');
  files.write("other.xsd", text);
  for (const std::size_t count : {2U, 3U}) {
    const std::string imports =
        repeated(count, [](std::size_t i) { return import("urn:b", times(i, "./") + "other.xsd"); });
    files.write("hostile.xsd", schemeWith(imports).text());
    EXPECT_EQ(files.outcome(Load::Scheme, "hostile.xsd"),
              count == 2U ? noBase : loadLimitExceeded("33554432 bytes of imported files"));
  }
}

TEST(Imports, ShareTheLimitsOfOneDocument) {
  const std::string prefixes = repeated(900, [](std::size_t i) { return numbered(" xmlns:p", i) + "='u'"; });
  const std::string attributes = repeated(250, [](std::size_t i) { return numbered(" a", i) + " CDATA #IMPLIED"; });
  const struct {
    std::string declaration;
    std::string content;
    const char* place;
    const char* limit;
  } kinds[] = {
      {"<!ENTITY e '" + times(400, "<a/>x") + "'>", times(2'000, "&e;"), "F/other.xsd:1:5373",
       "4000000 elements, attributes, texts and other nodes"},
      {"<!ENTITY e '" + std::string(4'096, 'x') + "'>", times(6'000, "&e;"), "F/other.xsd:1:5090",
       "50000000 characters that entities add"},
      {"<!ENTITY e '" + std::string(4'096, 'x') + "'>", "<a b='" + times(6'000, "&e;") + "'/>", "F/other.xsd:1:22478",
       "50000000 characters that entities add"},
      {"<!ENTITY e '<!--" + std::string(4'080, 'x') + "-->'>", times(6'000, "&e;"), "F/other.xsd:1:5162",
       "50000000 characters that entities add"},
      {"<!ENTITY e '<" + std::string(4'080, 'x') + "/>'>", times(6'000, "&e;"), "F/other.xsd:1:5194",
       "50000000 characters that entities add"},
      {"<!ATTLIST b" + attributes + attributes + ">", "<b/>", "F/./other.xsd:1:9813",
       "1000 declarations in a document type"},
      {"<!ATTLIST b" + attributes + ">", times(160'000, "<b/>"), "F/other.xsd:1:325265",
       "100000000 comparisons with declared attributes"},
      {"<!ATTLIST b i ID #IMPLIED>", repeated(4'000, [](std::size_t i) { return numbered("<b i='x", i) + "'/>"; }),
       "F/other.xsd:1:27289", "10000 attributes of type ID"},
      {"<!ATTLIST b c CDATA '" + std::string(10'000, 'x') + "'>", times(40, "<b/>"), "F/other.xsd:1:10466",
       "1000000 characters in default values of attributes"},
      {"", times(4, "<a" + prefixes + ">") + times(100'000, "<b/>") + times(4, "</a>"), "F/other.xsd:1:337387",
       "1000000000 comparisons with declared prefixes"},
      {"<!ATTLIST b a CDATA ''>", times(40'000, "<b/>"), "F/other.xsd:1:80374",
       "100000 attributes with default values"},
      {"<!ENTITY % e '" + std::string(3'998, ' ') + "'>" + times(120, "%e;"), "", "F/other.xsd:1:4069",
       "1000000 characters between the declarations of a document type"},
  };
  for (const auto& [declaration, content, place, limit] : kinds) {
    HostileFiles files;
    files.write(
        "other.xsd",
        SchemaBuilder(baseDocument("Other")).prolog("<!DOCTYPE xs:schema [" + declaration + "]>").add(content).text());
    const auto outcome = [&](std::size_t count) {
      files.write("hostile.xsd", schemeWith(repeated(count, [](std::size_t i) {
                                   return import("urn:b", times(i, "./") + "other.xsd");
                                 })).text());
      return files.outcome(Load::Scheme, "hostile.xsd");
    };
    EXPECT_EQ(outcome(1), noBase) << limit;
    EXPECT_EQ(outcome(3), std::string("SAXParseException: ") + place + ": Limit exceeded: more than " + limit);
  }

  // The parser keeps all namespaces, and may compare each with all that it has met.
  HostileFiles files;
  const auto outcome = [&](std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      const std::string uri = numbered(std::string(4'090, 'n'), i);
      files.write(numbered("", i) + ".xsd", baseDocument("Other").set("xmlns:n", uri).text());
    }
    const auto imported = [](std::size_t i) { return import("urn:b", numbered("", i) + ".xsd"); };
    files.write("hostile.xsd", schemeWith(repeated(count, imported)).text());
    return files.outcome(Load::Scheme, "hostile.xsd");
  };
  EXPECT_EQ(outcome(2'100), noBase);
  EXPECT_EQ(
      outcome(2'300),
      "SAXParseException: F/900.xsd:1:4200: Limit exceeded: more than 10000000000 characters of namespace names that "
      "are compared");
}

/// Document i of a chain or circle: its type T<i> extends that of the next document.
SchemaBuilder linkOf(std::size_t i, std::size_t next, bool isLast) {
  const std::string uri = numbered("urn:", next);
  return SchemaBuilder()
      .target(numbered("urn:", i))
      .set("xmlns:n", uri)
      .set("xmlns:e", "urn:t")
      .add(import(uri, numbered("", next) + ".xsd"))
      .add(complexType(numbered("T", i), property("e:A"), isLast ? "" : numbered("n:T", next)));
}

TEST(Imports, InChainsAndCirclesOfTenThousandDocuments) {
  constexpr std::size_t count = 10'000;
  HostileFiles files;
  for (std::size_t i = 0; i < count; ++i) {
    SchemaBuilder document = linkOf(i, (i + 1) % count, false);
    if (i == 0) document.add(group("G", 1).set("type", "t:T0"));
    files.write(numbered("", i) + ".xsd", document.text());
  }
  // The last imports the first, which is the scheme: that is read again, as an import.
  EXPECT_EQ(files.outcome(Load::Scheme, "0.xsd"), dataMissing("Type n:T1 is its own base type"));
  files.write(numbered("", count - 1) + ".xsd", linkOf(count - 1, 0, true).text());
  EXPECT_EQ(files.outcome(Load::Scheme, "0.xsd"), "5 elements, 1 sets, 10000 attributes");
  fs::remove(files.path("5000.xsd"));
  EXPECT_EQ(files.outcome(Load::Scheme, "0.xsd"), fileNotFound("F/5000.xsd"));
  files.write("5000.xsd", "<xs:schema");
  EXPECT_EQ(files.outcome(Load::Scheme, "0.xsd"), "SAXParseException: F/5000.xsd:1:11: unexpected end of input");
}

}  // namespace
}  // namespace MXF::Tessel::Test
