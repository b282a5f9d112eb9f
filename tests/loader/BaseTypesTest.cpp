// The chain of base types of a group, within one document.

#include "SchemeSession.h"
#include "ValueReading.h"

#include <pthread.h>

namespace MXF::Tessel::Test {
namespace {

const char* const isOwnBase = " is its own base type";

std::string type(const std::string& name, const std::string& base, const std::string& content = "") {
  return complexType(name, content, base);
}

TEST(BaseTypes, GiveTheirAttributesFirst) {
  const std::string derivedType = type("GType", "t:MiddleType", all({attributeProperty("t:A"), property("t:B")}));
  const std::string middleType = type("MiddleType", "t:RootType", all({property("t:C"), attributeProperty("t:B")}));
  const std::string rootType = complexType("RootType", all({attributeProperty("t:C"), property("t:A", "Req"),
                                                            attributeProperty("t:B"), property("t:B", "Req")}));
  const std::string restrictedType =
      R"(<xs:complexType name="GType"><xs:complexContent><xs:restriction base="t:RootType"/></xs:complexContent>)"
      "</xs:complexType>";
  const std::string root = "K01\n  L01 Req\n  L02 Req\n  L03 Opt\n  L02 Opt\n";
  expectResults({
      {"element form before attribute form, type by type, the root first",
       schemaOf(group("G", 1), derivedType, middleType, rootType),
       root + "  L03 Opt\n  L02 Opt\n  L02 Opt\n  L01 Opt\n"},
      {"restriction", schemaOf(group("G", 1), restrictedType, rootType), root},
      {"empty base", schemaOf(group("G", 1), type("GType", "", property("t:A"))), "K01\n  L01 Opt\n"},
      {"first declaration of a name",
       schemaOf(group("G", 1), complexType("GType", property("t:A")), complexType("GType", property("t:B"))),
       "K01\n  L01 Opt\n"},
      {"names with other characters",
       schemaOf(group("G", 1).set("type", "t:R&amp;D"),
                type("R&amp;D",
                     "t:Gr\xC3\xB6\xC3\x9F"
                     "e\xF0\x9F\x98\x80"),
                complexType("Gr\xC3\xB6\xC3\x9F"
                            "e\xF0\x9F\x98\x80",
                            property("t:B"))),
       "K01\n  L02 Opt\n"},
      {"names with apostrophes",
       schemaOf(group("G", 1).set("type", "t:G's''Type"), type("G's''Type", "t:'Root", property("t:A")),
                complexType("'Root", property("t:B"))),
       "K01\n  L02 Opt\n  L01 Opt\n"},
  });
}

TEST(BaseTypes, ThatAreMissingAreNamedAsTheyAreWritten) {
  const std::string noGroupType = dataMissing("The t:GType declaration was not found");
  const std::string noBase = dataMissing("Type x:Base, base type for t:GType, was not found");
  expectResults({
      {"own type", schemaOf(group("G", 1)), noGroupType},
      {"own type in an inner place", schemaOf(group("G", 1), Declaration("xs:group").add(complexType("GType", ""))),
       noGroupType},
      {"no type attribute", schemaOf(group("G", 1).drop("type")), dataMissing("The  declaration was not found")},
      {"no such name with an apostrophe", schemaOf(group("G", 1).set("type", "t:a' or 'a'='a"), complexType("a", "")),
       dataMissing("The t:a' or 'a'='a declaration was not found")},
      {"base", schemaOf(group("G", 1), type("GType", "x:Base")), noBase},
      {"the chain is followed before base groups are looked for",
       schemaOf(group("G", 1).set("type", "t:Top"), group("H", 2).drop("G:Key").set("type", "t:GType"),
                type("Top", "t:GType"), type("GType", "x:Base")),
       noBase},
  });
}

TEST(BaseTypes, ThatRecurAreReportedWhereTheyDo) {
  expectResults({
      {"own base", schemaOf(group("G", 1), type("GType", "t:GType")), dataMissing("Type t:GType") + isOwnBase},
      {"two types", schemaOf(group("G", 1), type("GType", "x:B"), type("B", "y:GType")),
       dataMissing("Type y:GType") + isOwnBase},
      {"cycle above the group's type",
       schemaOf(group("G", 1), type("GType", "t:B"), type("B", "t:D"), type("D", "z:B")),
       dataMissing("Type z:B") + isOwnBase},
  });
}

TEST(BaseGroups, AreThoseDeclaredWithTheBaseTypeAsItIsWritten) {
  const std::string noDefinition = dataMissing("Definition of type t:BaseType, base type for t:GType, was not found");
  const std::string types = type("GType", "t:BaseType") + type("BaseType", "t:RootType") + complexType("RootType", "");
  const Declaration base = group("Base", 2);
  const Declaration root = group("Root", 3);
  const auto abstract = [](Declaration declaration) { return declaration.set("abstract", "true"); };
  const struct {
    const char* what;
    std::string groups;
    std::string baseKey;  ///< Of G, or the failure, without abstract groups and with them.
    std::string withAbstractGroups;
  } cases[] = {
      {"immediate base group", all({base, root}), key(2), key(2)},
      {"abstract base group", all({abstract(base), root}), "", key(2)},
      {"no base group", root, "", noDefinition},
      {"no root group", base, key(2),
       dataMissing("Definition of type t:RootType, base type for t:BaseType, was not found")},
      {"type spelled otherwise", all({Declaration(base).set("type", "BaseType"), root}), "", noDefinition},
      {"no base groups at all: the root's comes first", "", "",
       dataMissing("Definition of type t:RootType, base type for t:BaseType, was not found")},
      {"first group of the type", all({group("First", 4).set("type", "t:BaseType"), base, root}), key(4), key(4)},
      {"base group without key annotation", all({Declaration(base).drop("G:Key"), root}),
       dataMissing("MetaMetadataSet without Key declaration."),
       dataMissing("MetaMetadataSet without Key declaration.")},
      {"root group without key annotation", all({base, Declaration(root).drop("G:Key")}),
       dataMissing("MetaMetadataSet without Key declaration."),
       dataMissing("MetaMetadataSet without Key declaration.")},
  };
  for (const auto& row : cases) {
    for (const bool withAbstractGroups : {false, true}) {
      SchemeSession session;
      session.loader.loadAbstractGroups(withAbstractGroups);
      const std::string outcome = session.loadScheme(schemaOf(group("G", 1), row.groups, types));
      EXPECT_EQ(outcome == "ok" ? session.propertyOf(1, L"baseGroupUL") : outcome,
                withAbstractGroups ? row.withAbstractGroups : row.baseKey)
          << row.what;
    }
  }
  for (const char* documentType : documentTypes) {
    SchemeSession session;
    ASSERT_EQ(session.loadScheme(schemaOf(group("G", 1), type("GType", "t:O'Base"), complexType("O'Base", ""),
                                          group("First", 2).set("type", "t:O'Base"),
                                          group("Second", 3).set("type", "t:O'Base"))
                                     .prolog(documentType)),
              "ok");
    EXPECT_EQ(session.propertyOf(1, L"baseGroupUL"), key(2));
  }
}

/// Runs the action on a stack of the given size.
void onStackOf(std::size_t bytes, std::function<void()> action) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
  pthread_t thread{};
  const auto run = [](void* argument) -> void* {
    (*static_cast<std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST(BaseTypes, OfALongChainTakeNoStackEach) {
  constexpr int length = 4000;
  constexpr std::size_t stackSize = std::size_t{256} * 1024;
  SchemaBuilder schema = schemaOf(group("G", 1).set("type", "t:T0"));
  for (int i = 0; i < length; ++i) {
    const std::string base = i + 1 < length ? "t:T" + std::to_string(i + 1) : "";
    schema.add(type("T" + std::to_string(i), base, property("t:A")));
  }
  const GermanProcess german;  // groups digits, which must not show in the attributes' positions
  SchemeSession session;
  std::string outcome;
  onStackOf(stackSize, [&] { outcome = session.loadScheme(schema); });
  ASSERT_EQ(outcome, "ok");
  const auto& attributes = session.dictionary.metaMetadataSetBegin()->second.metaAttributes();
  ASSERT_EQ(attributes.size(), static_cast<std::size_t>(length));
  EXPECT_EQ(narrow(attributes.back()->getProperty(L"SchemaIndex")), std::to_string(length - 1));
}

}  // namespace
}  // namespace MXF::Tessel::Test
