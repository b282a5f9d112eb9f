// The scheme pass as a whole: the order of its steps, and what each leaves in the dictionary when it fails.

#include "SchemeSession.h"

#include <MetaMetadata/MetaElements.h>

#include <memory>

namespace MXF::Tessel::Test {
namespace {

const std::string badKey = "InvalidULDesignator (25): x";
const std::string noType = dataMissing("The t:GType declaration was not found");

const std::string goodType = complexType("GType", property("t:Int").note("G:LocalTag", "3C0A"));

/// A session whose dictionary holds a reference to the groups G and H of "urn:t" (L01), an element Int (L02) and the
/// set with key 2.
class PassSession : public LoadSession {
 public:
  PassSession() {
    EXPECT_EQ(loadDictionary(schemaOf(element("Ref", 1).add(derived("t:StrongRefHolder", references({"t:H", "t:G"}))),
                                      element("Int", 2, "t:Int32"))),
              "ok");
    EXPECT_EQ(loadScheme(schemaOf(group("Old", 2).set("type", "t:Old"), complexType("Old", "")).target("urn:old")),
              "ok");
  }

  /// What the dictionary holds beside the two elements' properties, in one line: the reference's allowed sets and
  /// pending groups, then sets and tags.
  [[nodiscard]] std::string state() const {
    const std::string full = dump(dictionary);
    const std::size_t pending = full.find('=') + 1;
    std::string text = full.substr(full.find('['), full.find(']') + 1 - full.find('['));
    text += full.substr(pending, full.find("; ", pending) - pending);
    const std::string brief = dump(dictionary, Properties::LeftOut);
    text += brief.substr(brief.find("\nK"));
    for (char& character : text) character = character == '\n' ? ' ' : character;
    return text;
  }
};

TEST(SchemePass, RegistersSetsAndTagsAfterAllIsBuilt) {
  PassSession session;
  EXPECT_EQ(session.state(), "[][G,urn:t];[H,urn:t]; K02 ");
  EXPECT_EQ(session.loadScheme(schemaOf()), "ok");  // no groups, nothing changes
  EXPECT_EQ(session.state(), "[][G,urn:t];[H,urn:t]; K02 ");
  EXPECT_EQ(session.loadScheme(schemaOf(group("G", 3), group("X", 1).set("type", "t:GType"), goodType)), "ok");
  EXPECT_EQ(session.state(), "[K03][H,urn:t]; K01   L02 Opt 3C.0A K02 K03   L02 Opt 3C.0A 3C.0A L02 ");
}

struct StepCase {
  const char* step;
  std::string schema;
  std::string outcome;  ///< Its beginning.
  std::string state;
};

TEST(SchemePass, FailingAtAStepLeavesWhatTheEarlierStepsDid) {
  const std::string untouched = "[][G,urn:t];[H,urn:t]; K02 ";
  const std::string resolved = "[K03][H,urn:t]; K02 ";
  const auto text = [](const SchemaBuilder& schema) { return schema.text(); };
  const std::string nextGroup = group("X", 4).set("type", "t:Missing");
  const StepCase cases[] = {
      {"reading the document", "<xs:schema>", "ParseError (33): ", untouched},
      {"selecting the groups", "<s:schema xmlns:s='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:t'/>",
       "XQillaException: No namespace for prefix 'xs'", untouched},
      {"reading a key", text(schemaOf(group("G", 3), group("X", 4).note("G:Key", "x"), goodType)), badKey, untouched},
      {"reading the target namespace", text(schemaOf(group("G", 3), goodType).drop("targetNamespace")), noTarget,
       untouched},
      {"building the second set", text(schemaOf(group("G", 3), nextGroup, goodType)),
       dataMissing("The t:Missing declaration was not found"), resolved},
      {"building an attribute", text(schemaOf(group("G", 3), complexType("GType", property("t:None")))),
       "NotFound (31): The t:None not MetaElement not found in Dictionary.", resolved},
      // Sets are registered in the order of their keys.
      {"registering the second set",
       text(schemaOf(group("G", 3), group("H", 2).set("type", "t:GType"), group("X", 1).set("type", "t:GType"),
                     goodType)),
       "MetaMetadataSetAlreadyLoaded (45): " + key(2), "[K03 K02] K01   L02 Opt 3C.0A K02 "},
  };
  for (const StepCase& row : cases) {
    PassSession session;
    const std::string path = session.folder.write("faulty.xsd", row.schema);
    const std::string outcome = outcomeOf([&] { session.loader.loadScheme(wide(path), session.dictionary); });
    EXPECT_EQ(outcome.substr(0, row.outcome.size()), row.outcome) << row.step;
    EXPECT_NE(outcome, "ok") << row.step;
    EXPECT_EQ(session.state(), row.state) << row.step;
    // The loader stays usable.
    EXPECT_EQ(session.loadScheme(schemaOf(group("Last", 9).set("type", "t:GType"), goodType)), "ok") << row.step;
  }
  PassSession session;
  EXPECT_EQ(session.loadScheme(schemaOf(group("G", 2).set("type", "t:GType"), goodType), "x.xsd").substr(0, 35),
            "MetaMetadataSetAlreadyLoaded (45): ");
  EXPECT_EQ(session.loadSchemeFile("none\\x.xsd"), "IOError (26): none\\x.xsd file Not Found!");
}

TEST(SchemePass, NeedsTheXmlNamesOfAllElementsFirst) {
  for (const wchar_t* property : {L"XMLTagName", L"XMLNamespaceURI"}) {
    PassSession session;
    const Types::UniversalLabel unnamed(wide(label(3)).c_str(), Types::StringRepresentationEncodingType::DottedHex);
    auto element = std::make_unique<MetaMetadata::MetaSimpleElement>(unnamed, Types::Identifiers::Identifier::Int32);
    if (property != std::wstring(L"XMLTagName")) element->addProperty(L"XMLTagName", L"Unnamed");
    session.dictionary.addMetaElement(unnamed, std::move(element));
    EXPECT_EQ(session.loadScheme(schemaOf(group("G", 1).note("G:Key", "x"))),
              "NotFound (31): Property not found: " + narrow(property));
  }
}

TEST(SchemePass, ReportsTheFaultOfTheEarlierStep) {
  const Declaration faulty = group("X", 2).note("G:Key", "x");
  const SchemaBuilder noTargetNoType = schemaOf(group("G", 1)).drop("targetNamespace");
  expectResults({
      {"a key of the last group before the target namespace", SchemaBuilder(noTargetNoType).add(faulty), badKey},
      {"the target namespace before the types", noTargetNoType, noTarget},
      {"a key of the last group before the first group's type", schemaOf(group("G", 1), faulty), badKey},
      {"empty target namespace", schemaOf().set("targetNamespace", ""), noTarget},
  });
}

}  // namespace
}  // namespace MXF::Tessel::Test
