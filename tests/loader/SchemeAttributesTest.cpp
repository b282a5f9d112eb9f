// Attributes of a set: how a property declaration refers to its element, its annotations, and its properties.

#include "SchemeSession.h"

#include <MetaMetadata/MetaElements.h>

#include <memory>
#include <set>
#include <tuple>

namespace MXF::Tessel::Test {
namespace {

/// A schema with one group of these property declarations.
SchemaBuilder groupOf(const std::initializer_list<std::string>& properties) {
  return schemaOf(group("G", 1), complexType("GType", all(properties)));
}
std::string unknownElement(const std::string& reference) {
  return "NotFound (31): The " + reference + " not MetaElement not found in Dictionary.";
}

TEST(AttributeProperties, AreSixAndTheSameInBothFlavours) {
  for (const SchemaFlavour flavour : {SchemaFlavour::Urn, SchemaFlavour::RegistryUri}) {
    SchemeSession session(flavour);
    SchemaBuilder schema(flavour);
    schema.add(group("G", 1));
    schema.add(complexType(
        "GType",
        all({property("t:B", "Req").note("G:LocalTag", "0x3c0a").note("G:Value", " 7").note("G:Semantics", " True "),
             property("t:A")})));
    EXPECT_EQ(session.setsAfter(schema, Properties::Shown),
              "K01 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=G; abstract=false; baseGroupUL=; name=G name\n"
              "  L02 Req 3C.0A Int32 7 LocalTag=3C.0A; MetadataElementRequiredStatus=Req; "
              "RequiresSemanticsValidation= True ; SchemaIndex=0; UniversalLabel=" +
                  label(2) +
                  "; XMLNamespaceURI=urn:t\n"
                  "  L01 Opt MetadataElementRequiredStatus=Opt; RequiresSemanticsValidation=; SchemaIndex=1; "
                  "UniversalLabel=" +
                  label(1) + "; XMLNamespaceURI=urn:t\n3C.0A L02\n");
  }
}

TEST(Attributes, AreReadFromTheirAnnotations) {
  const std::string noStatus = dataMissing("MetaMetadataSet without RequiredStatus.");
  expectResults({
      {"all status words",
       groupOf({property("t:A", "Req"), property("t:A", "Opt"), property("t:A", "D/req"), property("t:A", "E/req"),
                property("t:A", "B.Effort")}),
       "K01\n  L01 Req\n  L01 Opt\n  L01 D/req\n  L01 E/req\n  L01 B.Effort\n"},
      {"unknown status", groupOf({property("t:A", "req")}), "InvalidValue (16): Unknown required status: req"},
      {"status without text", groupOf({property("t:A", "")}), noStatus},
      {"no status annotation: no attribute", groupOf({property("t:Z").drop("G:Status"), property("t:A")}),
       "K01\n  L01 Opt\n"},
      {"tag without text", groupOf({property("t:A").note("G:LocalTag", "")}), "K01\n  L01 Opt\n"},
      {"tag with a blank", groupOf({property("t:A").note("G:LocalTag", "3C0A ")}),
       "InvalidValue (16): Invalid local tag: 3C0A "},
      {"one tag for two elements",
       groupOf({property("t:A").note("G:LocalTag", "3C0A"), property("t:B").note("G:LocalTag", "3C.0A")}),
       "K01\n  L01 Opt 3C.0A\n  L02 Opt 3C.0A\n3C.0A L01\n3C.0A L02\n"},
      {"the same element twice",
       groupOf({property("t:A").note("G:LocalTag", "3C0A"), property("t:A", "Req").note("G:LocalTag", "3C0A")}),
       "K01\n  L01 Opt 3C.0A\n  L01 Req 3C.0A\n3C.0A L01\n"},
      {"value without text", groupOf({property("t:A").note("G:Value", "")}), "K01\n  L01 Opt\n"},
      {"value that is none", groupOf({property("t:A").note("G:Value", " ")}),
       "InvalidValue (16): Invalid Int32 value:  "},
      // Of two faults, the one that is met first is reported.
      {"status before tag", groupOf({property("t:Z", "").note("G:LocalTag", "x")}), noStatus},
      {"status word before tag", groupOf({property("t:Z", "x").note("G:LocalTag", "x")}),
       "InvalidValue (16): Unknown required status: x"},
      {"tag before element", groupOf({property("t:Z").note("G:LocalTag", "x")}),
       "InvalidValue (16): Invalid local tag: x"},
      {"element before value", groupOf({property("t:Z").note("G:Value", "x")}), unknownElement("t:Z")},
      {"first declaration first", groupOf({property("t:A").note("G:Value", "x"), property("t:A", "")}),
       "InvalidValue (16): Invalid Int32 value: x"},
  });
}

TEST(Attributes, FindTheirElementByTheRootsBindings) {
  expectResults({
      {"unknown", groupOf({property("t:Z")}), unknownElement("t:Z")},
      {"other namespace", groupOf({property("u:A")}).set("xmlns:u", "urn:u"), unknownElement("u:A")},
      {"second prefix", groupOf({property("u:A")}).set("xmlns:u", "urn:t"), "K01\n  L01 Opt\n"},
      {"prefix bound further in", groupOf({property("u:A").set("xmlns:u", "urn:t")}), unknownElement("u:A")},
      {"no prefix", groupOf({property("A")}).set("xmlns", "urn:t"), unknownElement("A")},
      {"prefix of the whole reference", groupOf({property("A")}).set("xmlns:A", "urn:t"), "K01\n  L01 Opt\n"},
      {"no reference", groupOf({property("A").drop("ref")}), unknownElement("")},
      {"local part with a colon", groupOf({property("t:A:B")}), unknownElement("t:A:B")},
  });
}

TEST(Attributes, ReferToTheFirstElementOfTheirName) {
  SchemeSession session;
  for (const auto& [number, uri, tag] : {std::tuple{5, L"", L"Bare"}, {6, L"urn:t", L"A"}, {0, L"urn:t", L"B"}}) {
    const Types::UniversalLabel elementLabel(wide(label(number)).c_str(),
                                             Types::StringRepresentationEncodingType::DottedHex);
    auto element =
        std::make_unique<MetaMetadata::MetaSimpleElement>(elementLabel, Types::Identifiers::Identifier::Boolean);
    element->addProperty(L"XMLNamespaceURI", uri);
    element->addProperty(L"XMLTagName", tag);
    session.dictionary.addMetaElement(elementLabel, std::move(element));
  }
  EXPECT_EQ(session.setsAfter(groupOf({property("Bare"), property("t:A"), property("t:B")})),
            "K01\n  L05 Opt\n  L01 Opt\n  L00 Opt\n");
}

TEST(DistinguishedValues, AreReadByTheTypeOfTheElement) {
  SchemeSession session;
  ASSERT_EQ(
      session.loadDictionary(schemaOf(
          element("Numbers", 11).add(derived("t:Array", items("t:UInt8"))),
          element("Words", 12).add(derived("t:Batch", items("t:UTF16String"))), element("Time", 13, "t:Timestamp"),
          element("Ref", 14).add(derived("t:StrongRefHolder", references({}))),
          element("Refs", 15).add(derived("t:StrongRefArray", references({}))), element("Ratio", 16, "t:Rational"))),
      "ok");
  const auto valued = [](const char* reference, const char* text) {
    return std::string(property(reference).note("G:Value", text));
  };
  EXPECT_EQ(
      session.setsAfter(groupOf({valued("t:Numbers", "{0,-1}"), valued("t:Words", "{a, b}"), valued("t:Time", "0"),
                                 valued("t:Ref", "0"), valued("t:Refs", "{}"), valued("t:Ratio", "{0,0}")})),
      "K01\n  L11 Opt Array of 4 bytes {UInt8 0, UInt8 255}\n"
      "  L12 Opt Batch of 0 bytes {UTF16String a, UTF16String  b}\n  L13 Opt\n  L14 Opt\n"
      "  L15 Opt Array of 0 bytes {}\n  L16 Opt Rational 0/0\n");
  EXPECT_EQ(session.loadScheme(schemaOf(group("H", 2), complexType("HType", valued("t:Refs", "{00}")))),
            "InvalidValue (16): A collection cannot hold an empty item.");
}

TEST(Attributes, OfASharedBaseAreEachSetsOwn) {
  SchemeSession session;
  EXPECT_EQ(session.setsAfter(
                schemaOf(group("G", 1), group("H", 2), group("Base", 3),
                         complexType("GType", all({property("t:B"), property("t:A", "Req")}), "t:BaseType"),
                         complexType("HType", "", "t:BaseType"),
                         complexType("BaseType", all({property("t:A").note("G:LocalTag", "3C0A"), property("t:A")})))),
            "K01\n  L01 Opt 3C.0A\n  L01 Opt\n  L02 Opt\n  L01 Req\nK02\n  L01 Opt 3C.0A\n  L01 Opt\n"
            "K03\n  L01 Opt 3C.0A\n  L01 Opt\n3C.0A L01\n");
  std::set<const MetaMetadata::MetaAttribute*> different;
  std::string indices;
  for (auto set = session.dictionary.metaMetadataSetBegin(); set != session.dictionary.metaMetadataSetEnd(); ++set) {
    for (const auto& attribute : set->second.metaAttributes()) {
      different.insert(&*attribute);
      indices += narrow(attribute->getProperty(L"SchemaIndex"));
    }
  }
  EXPECT_EQ(different.size(), 8U);
  EXPECT_EQ(indices, "01230101");
}

}  // namespace
}  // namespace MXF::Tessel::Test
