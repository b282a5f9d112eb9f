// From a declaration's type to the class and types of its element.

#include "support/Loading.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::Test {
namespace {

const std::string typeOfAUnknown =
    "TypeNotSupportedException (47): MetaElement type not supported, unknown data type: A";
const std::string unknownItems =
    "InvalidMetaElementDeclaration (20): MetaElement Declaration of type collection with unknown sub data type: A";

struct TypeCase {
  Declaration declaration;
  std::string expected;  ///< Class and types, or the failure.
};

void expectTypes(const std::vector<TypeCase>& cases) {
  for (const auto& [declaration, expected] : cases) {
    LoadSession session;
    const std::string loaded = session.dictionaryAfter(SchemaBuilder().add(declaration), Properties::LeftOut);
    EXPECT_EQ(loaded, expected.substr(0, 4) == "Meta" ? "L01 " + expected + "\n" : expected) << declaration.text();
  }
}

Declaration typed(const std::string& type) {
  return element("A", 1, type);
}
Declaration based(const std::string& base, const std::string& content = "") {
  return element("A", 1).add(derived(base, content));
}

TEST(DataTypes, ATypeAttributeIsLookedUpByItsLocalPart) {
  expectTypes({
      {typed("Int32"), "MetaSimpleElement 6"},
      {typed("t:Int32"), "MetaSimpleElement 6"},
      {typed("nowhere:RGBALayout"), "MetaSimpleElement 34"},
      {typed("t:StrongReference"), "MetaReferenceElement 29 []"},
      {typed("WeakReference"), "MetaReferenceElement 30 []"},
      {typed("a:t:Int32"), typeOfAUnknown},
      {typed("int32"), typeOfAUnknown},
      {typed(" Int32"), typeOfAUnknown},
      {typed("t:StrongRefArray"), typeOfAUnknown},  // reference kinds count only as a base
      {typed("Unknown").add(restricted("Int32")), typeOfAUnknown},
      {typed("Array"), unknownItems},
      {typed("t:Batch").add(derived("Array", items("Int8"))), unknownItems},
      {element("A", 1), typeOfAUnknown},
      {element("A", 1).drop("name"),
       "TypeNotSupportedException (47): MetaElement type not supported, unknown data type: "},
  });
}

TEST(DataTypes, WithoutATypeTheNearestBaseThreeLevelsDownOrElseTwoCounts) {
  const std::string attributeTwoDown = R"(<xs:simpleType><xs:restriction base="Int8"/></xs:simpleType>)";
  const std::string attributeThreeDown = R"(<x><y><z base="t:Int64"/></y></x>)";
  expectTypes({
      {element("A", 1).add(restricted("t:UInt16")), "MetaSimpleElement 17"},
      {element("A", 1).set("type", "").add(restricted("UInt16")), "MetaSimpleElement 17"},
      {element("A", 1).add(attributeTwoDown + attributeThreeDown), "MetaSimpleElement 7"},
      {element("A", 1).add(restricted("Int8") + restricted("Int16")), "MetaSimpleElement 8"},
      {element("A", 1).add("<x><y><z/><z base='Int8'/><z base='Int16'/></y></x>"), "MetaSimpleElement 8"},
      {element("A", 1).note("other", "<x base='Int8'/>").add(attributeThreeDown), "MetaSimpleElement 8"},
      {element("A", 1).add("<x base='Int8'/><a><b><c><d base='Int8'/></c></b></a>"), typeOfAUnknown},
      {element("A", 1).add("<x><y><z base=''/></y></x>" + restricted("Int8")), typeOfAUnknown},
      {based("xs:Unknown"), typeOfAUnknown},
      {based(""), typeOfAUnknown},
  });
}

TEST(DataTypes, TheSixReferenceKindsAreBases) {
  expectTypes({
      {based("t:StrongRefBatch"), "MetaReferenceCollection 1 29 []"},
      {based("WeakRefBatch"), "MetaReferenceCollection 1 30 []"},
      {based("t:StrongRefArray"), "MetaReferenceCollection 0 29 []"},
      {element("A", 1).set("type", "").add(derived("StrongRefArray")), "MetaReferenceCollection 0 29 []"},
      {based("WeakRefArray"), "MetaReferenceCollection 0 30 []"},
      {based("x:WeakRefHolder"), "MetaReferenceElement 30 []"},
      {based("StrongRefHolder"), "MetaReferenceElement 29 []"},
      {element("A", 1).add(restricted("StrongRefHolder")), "MetaReferenceElement 29 []"},
      {based("StrongReference"), "MetaReferenceElement 29 []"},
      {based("strongRefArray"), typeOfAUnknown},
      {based("StrongRefArrays"), typeOfAUnknown},
  });
}

TEST(DataTypes, ACollectionTakesTheTypeOfTheFirstItemInItsDerivation) {
  const std::string noName = "InvalidMetaElementDeclaration (20): Empty name attribute";
  const std::string choice = R"(<xs:choice><xs:element name="I" type="Int8"/></xs:choice>)";
  const std::string untyped = R"(<xs:sequence><xs:element name="I"/></xs:sequence>)";
  const std::string second = R"(<xs:sequence><xs:element/><xs:element name="I" type="t:Int8"/></xs:sequence>)";
  const std::string simpleContent = R"(<xs:complexType><xs:simpleContent><xs:extension base="Array">)" + items("Int8") +
                                    "</xs:extension></xs:simpleContent></xs:complexType>";
  expectTypes({
      {based("t:Array", items("t:Int32")), "MetaCollection 0 6"},
      {based("Batch", items("UL")), "MetaCollection 1 23"},
      {element("A", 1).add("<xs:complexType><xs:complexContent><xs:restriction base='Array'>" + items("Int8") +
                           "</xs:restriction></xs:complexContent></xs:complexType>"),
       "MetaCollection 0 8"},
      {based("Array", second), "MetaCollection 0 8"},
      {based("Array", choice + items("Int16")), "MetaCollection 0 8"},
      {based("Batch", items("StrongReference")), "MetaReferenceCollection 1 29 []"},
      {based("Array", items("t:WeakReference", "")), "MetaReferenceCollection 0 30 []"},
      {based("Array", choice), noName},
      {based("Array", items("Int8", "")), noName},
      {based("Batch", R"(<xs:sequence><xs:element type="Int8"/></xs:sequence>)"), noName},
      {based("Array", untyped), unknownItems},
      {based("Array"), unknownItems},
      {based("Array", items("Unknown")), unknownItems},
      {based("Array", items("StrongRefHolder")), unknownItems},
      {element("A", 1).add(restricted("Array")), unknownItems},
      {element("A", 1).add(simpleContent), unknownItems},
      {based("Array", items("Array")), "TypeNotSupportedException (47): Not a simple data type: 0"},
      {based("Array", items("Batch")), "TypeNotSupportedException (47): Not a simple data type: 1"},
  });
}

}  // namespace
}  // namespace MXF::Tessel::Test
