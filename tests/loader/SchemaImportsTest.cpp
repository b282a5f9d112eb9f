// Base types in imported documents: where they are looked for, in which order, and what loading an import changes.

#include "MetaMetadata/XSDLoaderImpl/SchemaImports.h"
#include "SchemeSession.h"

#include <filesystem>
#include <utility>

namespace MXF::Tessel::Test {
namespace {

const std::string noBase = dataMissing("Type b:Base, base type for t:GType, was not found");

/// The scheme: a group G whose type has the base and no properties of its own, and what else is declared.
SchemaBuilder scheme(const std::string& base, const std::string& rest, int number = 1) {
  return schemaOf(group("G", number), complexType("GType", "", base), rest).set("xmlns:b", "urn:b");
}
/// A document for "urn:b" that declares the base type with one property.
SchemaBuilder baseDocument(const std::string& ref = "t:A", const std::string& name = "Base") {
  return schemaOf(complexType(name, property(ref))).target("urn:b").set("xmlns:t", "urn:t");
}
/// The text of a document that binds xsd in place of xs.
std::string withoutXs(SchemaBuilder document) {
  document.drop("xmlns:xs").set("xmlns:xsd", "http://www.w3.org/2001/XMLSchema");
  std::string text = document.text();
  for (const char* start : {"<", "</"}) {
    const std::string tag = start + std::string("xs:");
    for (std::size_t at = 0; (at = text.find(tag, at)) != std::string::npos;) {
      text.replace(at, tag.size(), start + std::string("xsd:"));
    }
  }
  return text;
}

const std::string importsB = import("urn:b", "b.xsd");

struct File {
  File(std::string fileName, const SchemaBuilder& schema) : File(std::move(fileName), schema.text()) {}
  File(std::string fileName, std::string content) : name(std::move(fileName)), text(std::move(content)) {}
  std::string name;
  std::string text;
};

/// What a fresh session makes of the scheme beside these files. "F" stands for their folder.
void expectResult(const char* what, const std::vector<File>& files, const SchemaBuilder& scheme,
                  const std::string& expected) {
  SchemeSession session;
  for (const File& file : files) session.folder.write(file.name, file.text);
  std::string result = session.setsAfter(scheme);
  const std::string folder = session.folder.path("");
  if (const std::size_t at = result.find(folder); at != std::string::npos) result.replace(at, folder.size(), "F/");
  EXPECT_EQ(result, expected) << what;
}

TEST(Imports, AreSearchedForTheBaseType) {
  const SchemaBuilder empty = schemaOf().target("urn:b");
  const std::string importsTwo = import("urn:b", "z.xsd") + import("urn:b", "a.xsd");
  expectResult("one import", {{"b.xsd", baseDocument()}}, scheme("b:Base", importsB), "K01\n  L01 Opt\n");
  expectResult("locations in their own order", {{"a.xsd", baseDocument("t:A")}, {"z.xsd", baseDocument("t:B")}},
               scheme("b:Base", importsTwo), "K01\n  L01 Opt\n");
  expectResult("first location without the type", {{"a.xsd", empty}, {"z.xsd", baseDocument("t:B")}},
               scheme("b:Base", importsTwo), "K01\n  L02 Opt\n");
  expectResult("no location has the type", {{"a.xsd", empty}, {"z.xsd", empty}}, scheme("b:Base", importsTwo), noBase);
  expectResult("first location missing", {{"z.xsd", baseDocument()}}, scheme("b:Base", importsTwo),
               "IOError (26): F/a.xsd file Not Found!");
  expectResult("import of another namespace", {{"b.xsd", baseDocument()}}, scheme("b:Base", import("urn:c", "b.xsd")),
               noBase);
  expectResult("prefix not bound at the root", {{"b.xsd", baseDocument()}}, scheme("b:Base", importsB).drop("xmlns:b"),
               noBase);
  expectResult("no prefix: the import without namespace", {{"b.xsd", baseDocument()}},
               scheme("Base", import("", "b.xsd")), "K01\n  L01 Opt\n");
  expectResult("own document before imports", {{"b.xsd", baseDocument("t:A")}},
               scheme("b:Base", importsB + complexType("Base", property("t:B"))), "K01\n  L02 Opt\n");
  expectResult(
      "imports of the document that names the type, in the directory of the scheme",
      {{"lib/b.xsd",
        schemaOf(import("urn:c", "c.xsd"), complexType("Base", property("t:A"), "c:Root")).set("xmlns:c", "urn:c")},
       {"c.xsd", baseDocument("t:B", "Root").target("urn:c").set("xmlns:t", "urn:t")}},
      scheme("b:Base", import("urn:b", "lib/b.xsd")), "K01\n  L02 Opt\n  L01 Opt\n");
  expectResult("imports of an import are none of the importing document",
               {{"b.xsd", schemaOf(import("urn:c", "c.xsd"), complexType("Other", "")).target("urn:b")},
                {"c.xsd", baseDocument("t:B", "Root").target("urn:c")}},
               scheme("c:Root", importsB).set("xmlns:c", "urn:c"),
               dataMissing("Type c:Root, base type for t:GType, was not found"));
  expectResult("two documents that import each other: the scheme is read again",
               {{"b.xsd", schemaOf(import("urn:t", "scheme.xsd"), complexType("Base", property("t:A"), "t:Root"))
                              .set("targetNamespace", "urn:b")}},
               scheme("b:Base", importsB + complexType("Root", property("t:B"))), "K01\n  L02 Opt\n  L01 Opt\n");
  expectResult("a document that imports itself", {}, scheme("t:None", import("urn:t", "scheme.xsd")),
               dataMissing("Type t:None, base type for t:GType, was not found"));
  expectResult(
      "cycle across documents",
      {{"b.xsd",
        schemaOf(import("urn:t", "scheme.xsd"), complexType("Base", "", "t:GType")).set("targetNamespace", "urn:b")}},
      scheme("b:Base", importsB), dataMissing("Type b:Base is its own base type"));
  expectResult("namespace with an apostrophe", {{"b.xsd", baseDocument().target("urn:o'b").set("xmlns:t", "urn:t")}},
               scheme("b:Base", import("urn:o'b", "b.xsd")).set("xmlns:b", "urn:o'b"), "K01\n  L01 Opt\n");
}

TEST(Imports, GiveAttributesAndBaseGroupsAsTheyDeclareThem) {
  const std::string base = complexType("Base", property("t:A"));
  const auto baseGroup = [](const char* type) { return group("Base", 2).set("type", type); };
  const struct {
    SchemaBuilder document;
    bool withAbstractGroups;
    std::string result;
  } cases[] = {
      {schemaOf(base, baseGroup("b:Base")), true, key(2)},
      {schemaOf(base, baseGroup("b:Base").set("abstract", "true")), false, ""},
      {schemaOf(base, baseGroup("bt:Base")), false, ""},
      {schemaOf(base, baseGroup("bt:Base")), true,
       dataMissing("Definition of type b:Base, base type for t:GType, was not found")},
  };
  for (const auto& row : cases) {
    SchemeSession session;
    session.loader.loadAbstractGroups(row.withAbstractGroups);
    session.folder.write("b.xsd", SchemaBuilder(row.document).set("targetNamespace", "urn:b").text());
    const std::string outcome = session.loadScheme(scheme("b:Base", importsB));
    EXPECT_EQ(outcome == "ok" ? session.propertyOf(1, L"baseGroupUL") : outcome, row.result);
    if (outcome != "ok") continue;
    EXPECT_EQ(session.propertyOf(1, L"XMLNamespaceURI"), "urn:t");
    const auto& attributes = session.dictionary.metaMetadataSetBegin()->second.metaAttributes();
    EXPECT_EQ(narrow(attributes.front()->getProperty(L"XMLNamespaceURI")), "urn:b");
  }
}

TEST(Imports, WithoutTargetNamespaceFailWhereItIsAskedFor) {
  const SchemaBuilder bare = schemaOf(complexType("Base", "")).target("");
  const std::string second = all({group("H", 2), complexType("HType", "", "b:Other")});
  expectResult("not asked for", {{"b.xsd", bare}}, scheme("b:Base", importsB), "K01\n");
  expectResult("asked for by an attribute", {{"b.xsd", baseDocument().drop("targetNamespace")}},
               scheme("b:Base", importsB), noTarget);
  expectResult("asked for by the next look-up, though an earlier import has the type",
               {{"a.xsd", baseDocument("t:A", "Other")}, {"b.xsd", bare}},
               scheme("b:Base", importsB + import("urn:b", "a.xsd") + second), noTarget);
}

TEST(Imports, MakeTheirBindingsThoseOfLaterQueries) {
  const std::string second = all({group("H", 2), complexType("HType", "", "b:Base")});
  const std::string both = importsB + import("urn:b", "a.xsd");
  const SchemaBuilder otherTarget = baseDocument("t:A").set("targetNamespace", "urn:c");
  const auto rebound = [](const SchemaBuilder& document) {
    std::string text = withoutXs(document);
    return text.insert(text.find(' '), " xmlns:xs='urn:other'");
  };
  expectResult("xs not bound", {{"b.xsd", withoutXs(baseDocument())}}, scheme("b:Base", importsB),
               "XQillaException: No namespace for prefix 'xs' [err:XPST0081] at :1:2");
  expectResult("xs bound otherwise: nothing is found there", {{"b.xsd", rebound(baseDocument())}},
               scheme("b:Base", importsB), noBase);
  expectResult(
      "all of the import under another namespace: from then on the scheme's own declarations are not seen",
      {{"b.xsd", baseDocument().set("xmlns:xs", "urn:other")}},
      schemaOf(group("G", 1), complexType("GType", property("t:Missing"), "b:Base"), importsB).set("xmlns:b", "urn:b"),
      "InvalidMetaElementDeclaration (20): The property 'name' is required.");
  expectResult("the next import's bindings hold again",
               {{"a.xsd", rebound(baseDocument("t:A"))}, {"b.xsd", baseDocument("t:B")}}, scheme("b:Base", both),
               "K01\n  L02 Opt\n");
  expectResult("an earlier import is found by later bindings",
               {{"a.xsd", rebound(baseDocument("t:A"))}, {"b.xsd", baseDocument("t:B")}},
               scheme("b:Base", both + second), "K01\n  L02 Opt\nK02\n  L01 Opt\n");
  expectResult("an import taken up again has its own bindings",
               {{"a.xsd", rebound(otherTarget)}, {"b.xsd", baseDocument("t:B").set("targetNamespace", "urn:c")}},
               scheme("b:Base", both + second), "K01\n  L02 Opt\nK02\n  L02 Opt\n");
}

TEST(Imports, ThatAreMalformedFailAsTheParserDoes) {
  SchemeSession session;
  const std::string path = session.folder.write("b.xsd", "<xs:schema>");
  EXPECT_EQ(session.loadScheme(scheme("b:Base", importsB)).rfind("SAXParseException: " + path + ":1:", 0), 0U);
  session.folder.write("b.xsd", baseDocument().text());
  EXPECT_EQ(session.setsAfter(scheme("b:Base", importsB)), "K01\n  L01 Opt\n");
}

TEST(Imports, StayLoadedForLaterLoads) {
  SchemeSession session;
  const auto load = [&](const char* base, int number) {
    return session.loadScheme(scheme(base, importsB + import("urn:b", "z.xsd"), number));
  };
  session.folder.write("b.xsd", baseDocument("t:A").text());
  EXPECT_EQ(load("b:None", 1), "IOError (26): " + session.folder.path("z.xsd") + " file Not Found!");
  session.folder.write("b.xsd", baseDocument("t:B", "None").text());
  session.folder.write("z.xsd", baseDocument("t:C").text());
  // What the failed load had read counts, even where the file has changed since.
  EXPECT_EQ(load("b:None", 1), dataMissing("Type b:None, base type for t:GType, was not found"));
  std::filesystem::remove(session.folder.path("b.xsd"));
  std::filesystem::remove(session.folder.path("z.xsd"));
  EXPECT_EQ(load("b:None", 1), dataMissing("Type b:None, base type for t:GType, was not found"));
  EXPECT_EQ(load("b:Base", 1), "ok");
  EXPECT_EQ(session.sets(), "K01\n  L01 Opt\n");
}

TEST(Imports, LoadedEarlierAreSearchedInTheOrderOfLoading) {
  SchemeSession session;
  session.folder.write("z.xsd", baseDocument("t:C").add(complexType("Z", "")).text());
  session.folder.write("a.xsd", baseDocument("t:A").add(complexType("A", "")).text());
  ASSERT_EQ(session.loadScheme(scheme("b:Z", import("urn:b", "z.xsd"), 1)), "ok");
  ASSERT_EQ(session.loadScheme(scheme("b:A", import("urn:b", "a.xsd"), 2)), "ok");
  ASSERT_EQ(session.loadScheme(scheme("b:Base", "", 3)), "ok");
  EXPECT_EQ(session.sets(), "K01\nK02\nK03\n  L03 Opt\n");
  // A scheme document itself is no import.
  EXPECT_EQ(session.loadScheme(scheme("b:GType", "", 4).set("targetNamespace", "urn:x")),
            dataMissing("Type b:GType is its own base type"));
  EXPECT_EQ(session.loadScheme(scheme("t:Root", complexType("Root", ""), 5)), "ok");
  EXPECT_EQ(session.loadScheme(scheme("t:Root", "", 6)),
            dataMissing("Type t:Root, base type for t:GType, was not found"));
}

TEST(Imports, AreReadFromTheDirectoryOfTheScheme) {
  const struct {
    const wchar_t* document;
    const wchar_t* location;
    const wchar_t* path;
  } cases[] = {
      {L"schemes/smpte/groups.xsd", L"base.xsd", L"schemes/smpte/base.xsd"},
      {L"groups.xsd", L"base.xsd", L"./base.xsd"},
      {L"/groups.xsd", L"base.xsd", L"/base.xsd"},
      {L"schemes/groups.xsd", L"/lib/base.xsd", L"schemes//lib/base.xsd"},
      {L"schemes/groups.xsd", L"../base.xsd", L"schemes/../base.xsd"},
      {L"schemes/groups.xsd", L"lib\\base.xsd", L"schemes/lib\\base.xsd"},
  };
  MetaMetadata::Loading::XSDLoaderImplData data;
  for (const auto& row : cases) {
    data.documentPath = row.document;
    EXPECT_EQ(MetaMetadata::Loading::importedSchemaPath(data, row.location), row.path);
  }

  SchemeSession session;  // a backslash divides the path as well
  session.folder.write("sub/b.xsd", baseDocument().text());
  EXPECT_EQ(session.loadScheme(scheme("b:Base", importsB), "sub\\scheme.xsd"), "ok");
}

}  // namespace
}  // namespace MXF::Tessel::Test
