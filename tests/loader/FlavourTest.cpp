// Each annotation is found in its flavour's spelling only.

#include "support/Loading.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::Test {
namespace {

const std::string element1 =
    "L01 MetaSimpleElement 6 LengthDescription=4 bytes; XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=A; "
    "name=A name\n";
const std::string set1 =
    "K01 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=G; abstract=false; baseGroupUL=; name=G name\n";
const std::string attribute1 =
    "  L01 Req 3C.01 Int32 5 LocalTag=3C.01; MetadataElementRequiredStatus=Req; RequiresSemanticsValidation=true; "
    "SchemaIndex=0; UniversalLabel=" +
    label(1) + "; XMLNamespaceURI=urn:t\n";
const std::string tag1 = "3C.01 L01\n";
const std::string everything = element1 + set1 + attribute1 + tag1;
const std::string nameRequired = "InvalidMetaElementDeclaration (20): The property 'name' is required.";

std::string without(std::string text, const std::string& part) {
  return text.erase(text.find(part), part.size());
}

/// What is loaded of one element and one group that uses it, each with every annotation, when the one annotation is
/// written under another source.
std::string loaded(SchemaFlavour flavour, const std::string& annotation, const std::string& source) {
  const auto renamed = [&](const std::string& text) {
    return replaced(text, "source=\"" + annotation + "\"", "source=\"" + source + "\"");
  };
  const Declaration use =
      property("t:A", "Req").note("G:LocalTag", "3C.01").note("G:Value", "5").note("G:Semantics", "true");
  LoadSession session(flavour);
  session.loader.loadMetaElementLengthDescription(true);
  std::string outcome =
      session.loadDictionary(SchemaBuilder(flavour).add(renamed(element("A", 1, "Int32").note("D:Length", "4 bytes"))));
  if (outcome != "ok") return outcome;
  std::string schemeOutcome =
      session.loadScheme(SchemaBuilder(flavour).add(renamed(group("G", 1))).add(renamed(complexType("GType", use))));
  return schemeOutcome == "ok" ? dump(session.dictionary) : schemeOutcome;
}

const struct {
  std::string annotation;
  std::string withoutIt;
} annotationCases[] = {
    {"D:ElementUL", "NotFound (31): The t:A not MetaElement not found in Dictionary."},
    {"D:ElementName", nameRequired},
    {"D:Length", without(element1, "LengthDescription=4 bytes; ") + set1 + attribute1 + tag1},
    {"G:Key", element1},
    {"G:Name", nameRequired},
    {"G:Status", element1 + set1},
    {"G:LocalTag", element1 + set1 + without(without(attribute1, " 3C.01"), "LocalTag=3C.01; ")},
    {"G:Semantics", element1 + set1 + without(attribute1, "true") + tag1},
    {"G:Value", element1 + set1 + without(attribute1, " Int32 5") + tag1},
};

TEST(Flavours, EachAnnotationIsReadInItsFlavoursSpellingOnly) {
  for (const SchemaFlavour flavour : {SchemaFlavour::Urn, SchemaFlavour::RegistryUri}) {
    const bool urn = flavour == SchemaFlavour::Urn;
    const SchemaFlavour other = urn ? SchemaFlavour::RegistryUri : SchemaFlavour::Urn;
    for (const auto& [annotation, withoutIt] : annotationCases) {
      const std::string own = sourceIn(flavour, annotation);
      EXPECT_EQ(loaded(flavour, annotation, own), everything) << own;
      for (const std::string& source : {sourceIn(other, annotation), own + " ", own.substr(0, own.size() - 1)}) {
        EXPECT_EQ(loaded(flavour, annotation, source), withoutIt) << own << " written " << source;
      }
    }
  }
}

TEST(Flavours, TheTwoFlavoursSpellThreeNamesDifferently) {
  const std::string urn = "urn:SMPTE:MXF:XMLInterface:Groups:";
  const std::string registry = "http://www.smpte-ra.org/schemas/434/Groups/";
  const struct {
    SchemaFlavour flavour;
    std::string annotation;
    std::string mistaken;
    std::size_t row;
  } cases[] = {
      {SchemaFlavour::Urn, "G:Value", urn + "DistinguishedValue", 8},
      {SchemaFlavour::Urn, "G:Semantics", urn + "RequiresSemanticValidation", 7},
      {SchemaFlavour::RegistryUri, "G:Semantics", registry + "RequiresSemanticsValidation", 7},
      {SchemaFlavour::Urn, "G:Status", urn + "PropertyRequiredStatus", 5},
      {SchemaFlavour::RegistryUri, "G:Status", registry + "MetadataElementRequiredStatus", 5},
  };
  for (const auto& [flavour, annotation, mistaken, row] : cases) {
    ASSERT_EQ(annotationCases[row].annotation, annotation);
    EXPECT_EQ(loaded(flavour, annotation, mistaken), annotationCases[row].withoutIt) << mistaken;
  }
}

TEST(Flavours, ElementsAreAnyTopLevelComponentsAndGroupsAreElementsOnly) {
  LoadSession session;
  Declaration type("xs:complexType");
  type.set("name", "B").set("type", "Int8").note("D:ElementUL", label(2)).note("D:ElementName", "B name");
  EXPECT_EQ(session.loadDictionary(SchemaBuilder().add(type).add(Declaration("xs:group").add(element("C", 3, "Int8")))),
            "ok");
  const Declaration keyed = Declaration("xs:complexType").set("name", "GType").note("G:Key", key(2));
  const Declaration inner = Declaration("xs:choice").add(property("t:B")).add(attributeProperty("t:B"));
  EXPECT_EQ(session.loadScheme(
                SchemaBuilder().add(Declaration(keyed).add(Declaration("xs:sequence").add(inner))).add(group("G", 1))),
            "ok");
  EXPECT_EQ(dump(session.dictionary, Properties::LeftOut),
            "L02 MetaSimpleElement 8\n"
            "K01\n"
            "  L02 Opt\n"
            "  L02 Opt\n");
}

}  // namespace
}  // namespace MXF::Tessel::Test
