// The dictionary pass: labels, properties, pending references, and which of several faults is reported.

#include "support/Loading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <sstream>

namespace MXF::Tessel::Test {
namespace {

const std::string noLabel = "InvalidMetaElementDeclaration (20): MetaElement without UniversalLabel.";
const std::string noName = "InvalidMetaElementDeclaration (20): The property 'name' is required.";
const std::string unknownType = "TypeNotSupportedException (47): MetaElement type not supported, unknown data type: ";

/// What an element with nothing special about it is dumped as.
std::string plain(const std::string& name, int number) {
  return "L0" + std::to_string(number) +
         " MetaSimpleElement 8 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=" + name + "; name=" + name +
         " name\n";
}
Declaration valid(const std::string& name, int number) {
  return element(name, number, "Int8");
}
Declaration labelled(const std::string& text) {
  return valid("A", 1).note("D:ElementUL", text);
}

TEST(DictionaryPass, ALabelIsTheFirstTextOfItsAnnotationAnd47Characters) {
  const std::string hex = label(1);
  const auto invalid = [](const std::string& text) { return "InvalidULDesignator (25): " + text; };
  const struct {
    Declaration declaration;
    std::string expected;
  } cases[] = {
      {valid("A", 1), plain("A", 1)},
      {labelled("06.0e.2b.34.01.01.01.01.00.00.00.00.00.00.00.01"), plain("A", 1)},
      {labelled(hex).add("<xs:annotation><xs:appinfo source=\"D:ElementUL\">x</xs:appinfo></xs:annotation>"),
       plain("A", 1)},
      {labelled(hex + "<x/>tail"), plain("A", 1)},
      {labelled(""), noLabel},
      {labelled("<x>" + hex + "</x>"), noLabel},
      {labelled("<![CDATA[]]>" + hex), invalid("")},
      {labelled(hex.substr(1)), invalid(hex.substr(1))},
      {labelled(hex + "0"), invalid(hex + "0")},
      {labelled(" " + hex), invalid(" " + hex)},
      {labelled(hex + "\n"), invalid(hex + "\n")},
      {labelled("x" + hex.substr(1)), invalid("x" + hex.substr(1))},
      {labelled(std::string(47, '0')), invalid(std::string(47, '0'))},
      {labelled("&#xE9;"), invalid("é")},
      {labelled("urn:smpte:ul:060E2B34.01010101.00000000.00000001"),
       invalid("urn:smpte:ul:060E2B34.01010101.00000000.00000001")},
  };
  for (const auto& [declaration, expected] : cases) {
    EXPECT_EQ(LoadSession().dictionaryAfter(SchemaBuilder().add(declaration)), expected) << declaration.text();
  }
}

TEST(DictionaryPass, ElementsArriveInLabelOrderAndAllOrNone) {
  const std::string duplicate = "MetaElementAlreadyLoaded (44): " + label(1);
  const struct {
    std::string declarations;
    std::string expected;
  } cases[] = {
      {"", ""},
      {Declaration("xs:element").set("name", "A"), ""},
      {valid("C", 3) + valid("A", 1) + valid("B", 2), plain("A", 1) + plain("B", 2) + plain("C", 3)},
      {valid("A", 1) + valid("B", 2) + valid("C", 1), duplicate},
      {valid("A", 1) + element("B", 1, "Unknown"), duplicate},  // before its type is looked at
      {valid("A", 1) + valid("B", 1).note("D:ElementUL", "06.0e" + label(1).substr(5)), duplicate},
      {valid("A", 1) + valid("B", 2) + valid("C", 3) + valid("D", 4) + element("E", 5, "X"), unknownType + "E"},
      {element("B", 2, "X") + valid("A", 1).drop("D:ElementName"), unknownType + "B"},  // in document order
  };
  for (const auto& [declarations, expected] : cases) {
    EXPECT_EQ(LoadSession().dictionaryAfter(SchemaBuilder().add(declarations)), expected) << declarations;
  }
}

TEST(DictionaryPass, ALabelThatTheDictionaryHoldsStopsTheHandingOver) {
  LoadSession session;
  EXPECT_EQ(session.loadDictionary(SchemaBuilder().add(valid("B", 2))), "ok");
  const SchemaBuilder more = SchemaBuilder().add(valid("D", 4) + valid("C", 2) + valid("A", 1));
  EXPECT_EQ(session.loadDictionary(more),
            "MetaElementAlreadyLoaded (44): " + label(2) + "\nCHANGED\n" + plain("A", 1) + plain("B", 2));
  EXPECT_EQ(session.loadDictionary(SchemaBuilder().add(valid("D", 4))), "ok");
  MetaMetadata::Dictionary other;
  EXPECT_EQ(outcomeOf([&] { session.loader.loadDictionary(wide(session.folder.path("dictionary.xsd")), other); }),
            "ok");
  EXPECT_EQ(dump(other), plain("D", 4));
}

TEST(DictionaryPass, OfSeveralFaultsTheFirstStepsIsReported) {
  // Begins with all faults; each step mends the one reported.
  Declaration declaration = element("A", 1).drop("D:ElementName").note("D:ElementUL", "");
  SchemaBuilder schema;
  schema.drop("targetNamespace").drop("xmlns:t");
  const auto outcome = [&] { return LoadSession().loadDictionary(SchemaBuilder(schema).add(declaration)); };
  EXPECT_EQ(outcome(), noLabel);
  declaration.note("D:ElementUL", "short");
  EXPECT_EQ(outcome(), "InvalidULDesignator (25): short");
  declaration.note("D:ElementUL", label(1));
  EXPECT_EQ(outcome(), unknownType + "A");
  const Declaration untyped = declaration;
  declaration.add(derived("Array", R"(<xs:choice><xs:element type="X"/></xs:choice>)"));
  EXPECT_EQ(outcome(),
            "InvalidMetaElementDeclaration (20): MetaElement Declaration of type collection with unknown sub data "
            "type: A");
  declaration = element("A", 1)
                    .drop("D:ElementName")
                    .add(derived("Array", R"(<xs:choice><xs:element type="Int8"/></xs:choice>)"));
  EXPECT_EQ(outcome(), noName);
  declaration.note("D:ElementName", "");
  EXPECT_EQ(outcome(), noName);
  declaration.note("D:ElementName", "A name");
  EXPECT_EQ(outcome(), noTarget);
  schema.set("targetNamespace", "");
  EXPECT_EQ(outcome(), noTarget);
  schema.set("targetNamespace", "urn:n").set("xmlns", "urn:n");  // the default namespace is no prefix
  EXPECT_EQ(outcome(), "InvalidMetaElementDeclaration (20): No default prefix defined for namespace: urn:n");
  schema.set("xmlns:n", "urn:n");
  EXPECT_EQ(outcome(), "InvalidMetaElementDeclaration (20): Empty name attribute");
}

struct PropertyCase {
  Declaration declaration;
  std::string properties;
};

void expectProperties(const std::vector<PropertyCase>& cases, bool options,
                      const SchemaBuilder& schema = SchemaBuilder()) {
  for (const auto& [declaration, properties] : cases) {
    LoadSession session;
    session.loader.loadMetaElementDocumentation(options);
    session.loader.loadMetaElementLengthDescription(options);
    const std::string line = session.dictionaryAfter(SchemaBuilder(schema).add(declaration));
    const std::string expected = " " + properties + "\n";
    EXPECT_EQ(line.substr(line.size() - std::min(line.size(), expected.size())), expected) << line;
  }
}

TEST(DictionaryPass, AnElementHasExactlyThesePropertiesInEachClassAndWithEachOption) {
  const Declaration full =
      valid("A", 1).documentation("One &amp; two").documentation("Three").note("D:Length", "1 byte");
  const std::string xml = "XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=A; name=A name";
  const Declaration collection = element("A", 1).add(derived("Array", items("Int8", "One") + items("Int8", "Two")));
  const Declaration reference = element("A", 1).add(derived("StrongRefArray", items("Int8") + references({"t:G"})));
  expectProperties({{full, "8 " + xml},
                    {collection, "0 8 XMLChildTagName=One; " + xml},
                    {reference, "0 29 [] UnresolvedMetaMetadataSetsRefs=[G,urn:t];; " + xml},
                    {valid("A", 1).drop("name"), "8 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; name=A name"},
                    {valid("A", 1).set("name", ""), "8 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; name=A name"}},
                   false);
  expectProperties({{full, "8 Documentation=One & two; LengthDescription=1 byte; " + xml},
                    {valid("A", 1).documentation("").note("D:Length", ""), "8 " + xml},
                    {valid("A", 1).documentation("").documentation("Second"), "8 Documentation=Second; " + xml},
                    {valid("A", 1).documentation(" <b>x</b>rest"), "8 Documentation= ; " + xml},
                    {valid("A", 1).documentation("<![CDATA[]]>x"), "8 " + xml}},
                   true);
}

TEST(DictionaryPass, TagAndNamespaceStandAsWrittenWithTheFirstPrefix) {
  const SchemaBuilder quoted = SchemaBuilder().target("urn:it's").set("xmlns:s", "urn:it's");
  expectProperties(
      {{valid("it's", 1), "8 XMLDefaultPrefix=s; XMLNamespaceURI=urn:it's; XMLTagName=it's; name=it's name"}}, false,
      quoted);
  LoadSession session;
  EXPECT_EQ(session.loadDictionary(SchemaBuilder().drop("xmlns:t").set("xmlns:z", "urn:t").add(valid("A", 1))), "ok");
  EXPECT_EQ(session.loadDictionary(SchemaBuilder().drop("xmlns:t").set("xmlns", "urn:t").add(valid("B", 2))), "ok");
  EXPECT_EQ(session.loadDictionary(SchemaBuilder().add(valid("C", 3))), "ok");
  const std::string all = plain("A", 1) + plain("B", 2) + plain("C", 3);
  EXPECT_EQ(dump(session.dictionary), replaced(all, "Prefix=t", "Prefix=z"));
}

TEST(DictionaryPass, PendingReferencesNameEachTargetWithTheNamespaceOfTheRootsPrefix) {
  const auto holding = [](const std::initializer_list<std::string>& refs) {
    return element("A", 1).add(derived("StrongRefHolder", references(refs)));
  };
  const std::string reboundInside =
      "<xs:choice xmlns:t='urn:inner' xmlns:u='urn:inner'><xs:element ref='t:G'/><xs:element ref='u:H'/></xs:choice>";
  const std::string inSequence = "<xs:sequence><xs:element ref='t:G'/></xs:sequence>";
  const struct {
    Declaration declaration;
    std::string pending;
  } cases[] = {
      {holding({"t:GroupB", "t:GroupA"}), "[GroupB,urn:t];[GroupA,urn:t];"},
      {holding({"t:G", "t:G"}), "[G,urn:t];[G,urn:t];"},
      {holding({}), ""},
      {holding({"t:Set_REF"}), ""},
      {holding({"t:A", "t:A_REFERENCE", "_REF:B", "t:C_ref"}), "[A,urn:t];[C_ref,urn:t];"},
      {holding({"G"}), "[G,];"},
      {holding({"Root"}), "[Root,urn:root];"},
      {holding({"none:G", "t:a:b", ":c", ""}), "[G,];[a:b,urn:t];[c,];[,];"},
      {element("A", 1).add(derived("StrongRefHolder", reboundInside)), "[G,urn:t];[H,];"},
      {element("A", 1).add(derived("StrongRefHolder", inSequence)), ""},
      {element("A", 1).add("<x><y><z base='WeakRefHolder'>" + references({"t:G"}) + "</z></y></x>"), "[G,urn:t];"},
      {element("A", 1, "WeakReference").add("<x><y><z>" + references({"t:G"}) + "</z></y></x>"), "[G,urn:t];"},
  };
  for (const auto& [declaration, pending] : cases) {
    const std::string line =
        LoadSession().dictionaryAfter(SchemaBuilder().set("xmlns:Root", "urn:root").add(declaration));
    const std::string start = "[] UnresolvedMetaMetadataSetsRefs=" + pending + "; XML";
    EXPECT_EQ(line.substr(std::min(line.size(), line.find('[')), start.size()), start) << line;
  }
}

TEST(DictionaryPass, TwentyThousandDeclarationsLoad) {
  constexpr int count = 20'000;
  SchemaBuilder schema;
  for (int number = 0; number < count; ++number) {
    std::ostringstream text;
    text << "06.0E.2B.34.01.01.01.01.00.00.00.00.00." << std::hex << std::setfill('0') << std::setw(2) << number / 256
         << "." << std::setw(2) << number % 256 << ".00";
    schema.add(element("E" + std::to_string(number), 0, "Int8").note("D:ElementUL", text.str()));
  }
  LoadSession session;
  ASSERT_EQ(session.loadDictionary(schema), "ok");
  EXPECT_EQ(std::distance(session.dictionary.metaElementBegin(), session.dictionary.metaElementEnd()), count);
}

}  // namespace
}  // namespace MXF::Tessel::Test
