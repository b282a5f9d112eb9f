// Groups of a scheme document: their keys, which of them become sets, and the properties of a set.

#include "SchemeSession.h"

namespace MXF::Tessel::Test {
namespace {

const std::string plainType = complexType("GType", "");
const std::string noKey = dataMissing("MetaMetadataSet without Key declaration.");

TEST(GroupKeys, AreTakenAsTheyAreWritten) {
  const auto withKey = [](const std::string& text) { return schemaOf(group("G", 1).note("G:Key", text), plainType); };
  const auto refused = [](const std::string& text) { return "InvalidULDesignator (25): " + text; };
  const std::string noHex = "06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.01.0G";
  expectResults({
      {"lower case", withKey("06.0e.2b.34.02.53.01.01.0d.01.01.01.01.01.01.00"), "K01\n"},
      {"blank before", withKey(" " + key(1)), refused(" " + key(1))},
      {"blank after", withKey(key(1) + " "), refused(key(1) + " ")},
      {"too short", withKey("06.0E"), refused("06.0E")},
      {"no hexadecimal digits", withKey(noHex), refused(noHex)},
      {"another notation", withKey("urn:smpte:ul:060E2B34.02530101.0D010101.01010100"),
       refused("urn:smpte:ul:060E2B34.02530101.0D010101.01010100")},
      {"first text only", withKey(key(1) + "<!-- -->" + key(2)), "K01\n"},
      {"no text", withKey(""), noKey},
      {"no text of its own", withKey("<b>" + key(1) + "</b>"), noKey},
      {"empty CDATA section", withKey("<![CDATA[]]>"), refused("")},
      {"no key annotation: no group", schemaOf(group("G", 1).drop("G:Key")), ""},
      {"local declaration: no group", schemaOf(complexType("T", group("G", 1))), ""},
      {"other declaration: no group", schemaOf(Declaration("xs:attribute").set("name", "G").note("G:Key", key(1))), ""},
  });
}

TEST(Groups, AreSetsOnceEach) {
  const std::string twice = "MetaMetadataSetAlreadyLoaded (45): " + key(1);
  expectResults({
      {"two names, one key", schemaOf(group("G", 1), group("H", 1), plainType, complexType("HType", "")), twice},
      {"one name, two keys", schemaOf(group("G", 2), group("G", 1), plainType), "K01\nK02\n"},
      {"the key is compared before the type is looked for", schemaOf(group("G", 1), group("H", 1), plainType), twice},
      {"groups are built in document order", schemaOf(group("H", 1), group("G", 1), plainType),
       dataMissing("The t:HType declaration was not found")},
  });
}

TEST(Groups, ThatAreAbstractBecomeSetsOnlyOnDemand) {
  const auto schema = [](const std::string& abstract, const std::string& keyText) {
    return schemaOf(group("G", 1).set("abstract", abstract).note("G:Key", keyText), plainType);
  };
  const struct {
    std::string abstract;
    bool load;
    std::string keyText;
    std::string setAndProperty;
  } cases[] = {
      {"true", false, key(1), ""},        {"true", false, "", ""},  // not even asked for its key
      {"true", false, "none", ""},        {"true", true, key(1), "K01\ntrue"},
      {"true", true, "", noKey},          {"True", false, key(1), "K01\nfalse"},
      {"1", false, key(1), "K01\nfalse"}, {"True", true, key(1), "K01\nfalse"},
      {"1", true, key(1), "K01\nfalse"},  {"false", true, key(1), "K01\nfalse"},
  };
  for (const auto& row : cases) {
    SchemeSession session;
    session.loader.loadAbstractGroups(row.load);
    std::string result = session.setsAfter(schema(row.abstract, row.keyText));
    if (result == "K01\n") result += session.propertyOf(1, L"abstract");
    EXPECT_EQ(result, row.setAndProperty) << row.abstract;
  }
}

TEST(SetProperties, DescribeTheGroup) {
  const std::string type = complexType("GType", "", "t:BaseType") + complexType("BaseType", "");
  const Declaration documented = group("G", 1).documentation("First &amp; <b>only</b>").documentation("Second");
  const std::string rest = "XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=G; abstract=false; baseGroupUL=";
  const struct {
    SchemaBuilder schema;
    bool documentation;
    std::string sets;
  } cases[] = {
      {schemaOf(documented, plainType), false, "K01 " + rest + "; name=G name\n"},
      {schemaOf(documented, plainType), true, "K01 Documentation=First & ; " + rest + "; name=G name\n"},
      {schemaOf(group("G", 1).documentation(""), plainType), true, "K01 " + rest + "; name=G name\n"},
      {schemaOf(group("G", 1).documentation("").documentation("Second"), plainType), true,
       "K01 Documentation=Second; " + rest + "; name=G name\n"},
      {schemaOf(group("G", 1), group("Base", 2).drop("name"), type), false,
       "K01 " + rest + key(2) + "; name=G name\n" +
           "K02 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; abstract=false; baseGroupUL=; name=Base name\n"},
      // The first prefix that any document bound to the namespace stays its default prefix.
      {schemaOf(group("G", 1).set("type", "z:GType"), plainType).drop("xmlns:t").set("xmlns:z", "urn:t"), false,
       "K01 " + rest + "; name=G name\n"},
  };
  for (const auto& row : cases) {
    SchemeSession session;
    session.loader.loadMetaElementDocumentation(row.documentation);
    EXPECT_EQ(session.setsAfter(row.schema, Properties::Shown), row.sets);
  }
}

TEST(SetProperties, ThatAreMissingFailTheLoadAfterTheAttributes) {
  const std::string noName = "InvalidMetaElementDeclaration (20): The property 'name' is required.";
  const Declaration nameless = group("G", 1).note("G:Name", "");
  const SchemaBuilder other = schemaOf(group("G", 1), plainType).target("urn:other").drop("xmlns:t");
  expectResults({
      {"no name text", schemaOf(nameless, plainType), noName},
      {"no name annotation", schemaOf(group("G", 1).drop("G:Name"), plainType), noName},
      {"no prefix", other, "InvalidMetaElementDeclaration (20): No default prefix defined for namespace: urn:other"},
      {"default namespace only", SchemaBuilder(other).set("xmlns", "urn:other"),
       "InvalidMetaElementDeclaration (20): No default prefix defined for namespace: urn:other"},
      {"name before prefix", schemaOf(nameless, plainType).target("urn:other").drop("xmlns:t"), noName},
      {"attributes before name", schemaOf(nameless, complexType("GType", property("t:Missing"))),
       "NotFound (31): The t:Missing not MetaElement not found in Dictionary."},
  });
}

}  // namespace
}  // namespace MXF::Tessel::Test
