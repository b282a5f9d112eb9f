// Names, annotations and values: very long, very many, or made to be taken for something else.

#include "loader/support/Loading.h"
#include "support/HostileLoad.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::Test {
namespace {

constexpr std::size_t large = 10'000'000;

std::string dictionaryOf(const std::string& declarations) {
  return SchemaBuilder().add(declarations).text();
}
std::string schemeOf(const std::string& attribute, const std::string& rest = "") {
  return SchemaBuilder().add(group("G", 1)).add(complexType("GType", attribute)).add(rest).text();
}

TEST(Texts, OfTenMillionCharactersInADictionary) {
  const std::string text(large, 'x');
  const std::string counted = "x{10000000}";
  const std::string properties = elementA.substr(elementA.find("XMLDefault"));
  const struct {
    const char* what;
    std::string declaration;
    std::string expected;
  } cases[] = {
      {"name", element("A", 1, "Int32").set("name", text), replaced(elementA, "XMLTagName=A", "XMLTagName=" + counted)},
      {"registry name", element("A", 1, "Int32").note("D:ElementName", text), replaced(elementA, "A name", counted)},
      {"documentation", element("A", 1, "Int32").documentation(text), elementA},
      {"source", element("A", 1, "Int32").note(text, "x"), elementA},
      {"type", element("A", 1, text),
       "TypeNotSupportedException (47): MetaElement type not supported, unknown data type: A"},
      {"type with a prefix", element("A", 1, text + ":Int32"), elementA},
      {"base type", element("A", 1).add(derived(text)),
       "TypeNotSupportedException (47): MetaElement type not supported, unknown data type: A"},
      {"item type", element("A", 1).add(derived("Array", items(text))),
       "InvalidMetaElementDeclaration (20): MetaElement Declaration of type collection with unknown sub data type: A"},
      {"item name", element("A", 1).add(derived("Array", items("Int8", text))),
       "L01 MetaCollection 0 8 XMLChildTagName=" + counted + "; " + properties},
      {"reference", element("A", 1).add(derived("StrongRefArray", references({"t:" + text}))),
       "L01 MetaReferenceCollection 0 29 [] UnresolvedMetaMetadataSetsRefs=[" + counted + ",urn:t];; " + properties},
      {"label", element("A", 1, "Int32").note("D:ElementUL", text), "InvalidULDesignator (25): " + counted},
      {"blank label", element("A", 1, "Int32").note("D:ElementUL", std::string(large, ' ')),
       "InvalidULDesignator (25): {10000001}"},
  };
  for (const auto& [what, declaration, expected] : cases) {
    expectOutcome(what, Load::Dictionary, dictionaryOf(declaration), expected);
  }
  const std::string noPrefix = SchemaBuilder().set("targetNamespace", text).add(element("A", 1, "Int32")).text();
  expectOutcome("target namespace", Load::Dictionary, noPrefix,
                "InvalidMetaElementDeclaration (20): No default prefix defined for namespace: " + counted);
  expectOutcome("multiplex namespace", Load::Multiplex, noPrefix,
                "InvalidValue (16): Unknown targetNamespace in multiplex file.");
}

TEST(Texts, OfTenMillionCharactersInAScheme) {
  const std::string text(large, 'x');
  const std::string digits(large, '9');
  const struct {
    const char* what;
    Declaration attribute;
    std::string expected;
  } cases[] = {
      {"reference", property(text), "NotFound (31): The x{10000000} not MetaElement not found in Dictionary."},
      {"status", property("t:A", text), "InvalidValue (16): Unknown required status: x{10000000}"},
      {"local tag", property("t:A").note("G:LocalTag", digits), "InvalidValue (16): Invalid local tag: 9{10000000}"},
      {"number", property("t:A").note("G:Value", digits), "InvalidValue (16): Invalid Int32 value: 9{10000000}"},
      {"text", property("t:S").note("G:Value", text), "K01\n  L04 Opt UTF16String x{10000000}\n"},
      {"array that is none", property("t:N").note("G:Value", text), "K01\n  L05 Opt Array of 4 bytes {}\n"},
      {"array of one long number", property("t:N").note("G:Value", "{" + digits + "}"),
       "InvalidValue (16): Invalid Int8 value: 9{10000000}"},
      {"semantics", property("t:A").note("G:Semantics", text), "K01\n  L01 Opt\n"},
  };
  for (const auto& [what, attribute, expected] : cases)
    expectOutcome(what, Load::Scheme, schemeOf(attribute), expected);
  const auto withGroup = [](const Declaration& declaration) {
    return SchemaBuilder().add(declaration).add(complexType("GType", "")).text();
  };
  expectOutcome("group name", Load::Scheme, withGroup(group("G", 1).set("name", text)), "K01\n");
  expectOutcome("group key", Load::Scheme, withGroup(group("G", 1).note("G:Key", text)),
                "InvalidULDesignator (25): x{10000000}");
  expectOutcome("group type", Load::Scheme, withGroup(group("G", 1).set("type", "t:" + text)),
                dataMissing("The t:x{10000000} declaration was not found"));
}

TEST(Texts, RepeatedByEveryDeclarationAreLimited) {
  const Budget twoGiB{std::size_t{2} << 30U};
  constexpr std::size_t length = 4'000;
  const std::string limit = loadLimitExceeded("50000000 characters of repeated texts");
  const auto elements = [](std::size_t count) {
    return repeated(count, [](std::size_t i) {
      return element("A", 0, "Int32")
          .note("D:ElementUL",
                replaced(label(0), "00.00.00",
                         numbered("", 10 + i / 8100) + numbered(".", 10 + i / 90 % 90) + numbered(".", 10 + i % 90)));
    });
  };
  // With the prefix, of one character.
  const auto dictionary = [&](std::size_t count) {
    return SchemaBuilder().target(std::string(length - 1, 'u')).add(elements(count)).text();
  };
  expectOutcome("at the limit", Load::Dictionary, dictionary(12'500), "12500 elements, 0 sets, 0 attributes", twoGiB);
  expectOutcome("one more", Load::Dictionary, dictionary(12'501), limit, twoGiB);

  const std::string groups =
      repeated(90, [](std::size_t i) { return group(numbered("G", i), static_cast<int>(i)).set("type", "t:T"); });
  expectOutcome("a value that many sets share", Load::Scheme,
                SchemaBuilder()
                    .add(complexType("T", property("t:S").note("G:Value", std::string(1'000'000, 'v'))))
                    .add(groups)
                    .text(),
                limit, twoGiB);

  HostileFiles files;
  const std::string uri(length, 'u');
  files.write("elements.xsd", SchemaBuilder().target(uri).add(element("A", 1, "Int32")).text());
  const auto naming = [&](std::size_t count) {
    files.write("hostile.xsd", SchemaBuilder()
                                   .set("xmlns:u", uri)
                                   .add(group("G", 1))
                                   .add(complexType("GType", times(count, property("u:A"))))
                                   .text());
    return files.outcome(Load::Scheme, "hostile.xsd");
  };
  EXPECT_EQ(naming(2), "K01\n  L01 Opt\n  L01 Opt\n");
  EXPECT_EQ(naming(20'000), limit) << "a namespace that many references name";
}

TEST(Values, OfMillionsOfItemsAreReadInProportion) {
  const auto value = [](const std::string& text) { return schemeOf(property("t:N").note("G:Value", text)); };
  // An array of numbers is too long to be shown; one that fails at its last item has been read to there.
  const std::string limit = loadLimitExceeded("1000000 items of values");
  expectOutcome("items", Load::Scheme, value("{" + times(999'999, "1,") + "x}"),
                "InvalidValue (16): Invalid Int8 value: x");
  expectOutcome("more", Load::Scheme, value("{" + times(1'000'000, "1,") + "x}"), limit);
  expectOutcome("empty items", Load::Scheme, value("{" + std::string(large, ',') + "}"), limit);
  expectOutcome(
      "of many sets", Load::Scheme,
      SchemaBuilder()
          .add(complexType("T", property("t:N").note("G:Value", "{" + times(99'999, "1,") + "1}")))
          .add(repeated(11,
                        [](std::size_t i) { return group(numbered("G", i), static_cast<int>(i)).set("type", "t:T"); }))
          .text(),
      limit);
  expectOutcome("braces", Load::Scheme, value(std::string(large / 2, '{') + std::string(large / 2, '}')),
                "InvalidValue (16): Invalid Int8 value: {{4999999}}{4999999}");
  expectOutcome("no end", Load::Scheme, value("{" + times(large / 2, "1,")), "K01\n  L05 Opt Array of 4 bytes {}\n");
}

TEST(References, ByTheHundredThousand) {
  constexpr std::size_t count = 100'000;
  const auto reference = [](const std::string& targets) {
    return dictionaryOf(element("R", 1).add(derived("StrongRefArray", "<xs:choice>" + targets + "</xs:choice>")));
  };
  const auto target = [](const std::string& name) { return R"(<xs:element ref="t:)" + name + R"("/>)"; };
  expectOutcome("to one group", Load::Dictionary, reference(times(count, target(std::string(40, 'G')))),
                "L01 MetaReferenceCollection 0 29 [] UnresolvedMetaMetadataSetsRefs=" + times(count, "[G{40},urn:t];") +
                    "; XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=R; name=R name\n");

  HostileFiles files;
  files.write("elements.xsd", reference(repeated(count, [&](std::size_t i) { return target(numbered("G", i)); })));
  const std::string groups = repeated(count, [](std::size_t i) {
    return group(numbered("G", i), 1).set("type", "t:T").set("abstract", i == 99'999 ? "false" : "true").text();
  });
  files.write("groups.xsd", SchemaBuilder().add(complexType("T", "")).add(groups).text());
  EXPECT_EQ(files.outcome(Load::Scheme, "groups.xsd"), "K01\n");
}

/// Names as they are written in XML, and what they are.
struct OddName {
  const char* written;
  std::string name;
};

TEST(Names, ThatLookLikeQueriesAreNames) {
  const OddName names[] = {
      {"x'] | //* | *['", "x'] | //* | *['"},
      {"a' or '1'='1", "a' or '1'='1"},
      {"&quot;] or true() or [&quot;", "\"] or true() or [\""},
      {"''", "''"},
      {"doc('/etc/passwd')", "doc('/etc/passwd')"},
      {"unparsed-text('/etc/passwd')", "unparsed-text('/etc/passwd')"},
      {"T)]", "T)]"},
      {"$x", "$x"},
      {"{x}", "{x}"},
      {"&lt;x/>", "<x/>"},
      {"(: comment :)", "(: comment :)"},
      {"*", "*"},
      {"//.", "//."},
      {"x:y:z", "x:y:z"},
      {"&amp;apos;", "&apos;"},
      {"&amp;#39;", "&#39;"},
      {"&#10;", "\n"},
      {"xs:complexType", "xs:complexType"},
  };
  const std::string other = complexType("Other", property("t:B"));
  for (const auto& [written, name] : names) {
    const Declaration odd = group("G", 1).set("type", std::string("t:") + written);
    expectOutcome("type " + name, Load::Scheme,
                  SchemaBuilder().add(complexType(written, property("t:A")) + other + odd).text(), "K01\n  L01 Opt\n");
    expectOutcome("no type " + name, Load::Scheme, SchemaBuilder().add(other + odd).text(),
                  dataMissing("The t:" + name + " declaration was not found"));
    const std::string derivedType = complexType("GType", "", std::string("b:") + written);
    const SchemaBuilder importing = SchemaBuilder().set("xmlns:b", written).add(other + derivedType + group("G", 1));
    expectOutcome("namespace and base " + name, Load::Scheme,
                  SchemaBuilder(importing).add(import(written, "gone.xsd")).text(),
                  "IOError (26): F/gone.xsd file Not Found!");
    expectOutcome("base " + name, Load::Scheme, SchemaBuilder(importing).add(import("urn:c", "gone.xsd")).text(),
                  dataMissing("Type b:" + name + ", base type for t:GType, was not found"));
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
