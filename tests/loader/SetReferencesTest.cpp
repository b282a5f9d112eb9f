// Set references that wait for their groups: their text, and what a scheme document makes of them.

#include "MetaMetadata/XSDLoaderImpl/PendingSetReferences.h"
#include "SchemeSession.h"

#include <MetaMetadata/MetaElements.h>

#include <memory>

namespace MXF::Tessel::Test {
namespace {

using Types::Identifiers::Identifier;

TEST(PendingSetReferences, AreReadUpToWhatIsNoneAndWrittenInNameOrder) {
  const struct {
    const char* text;
    const char* written;
  } cases[] = {
      {"", ""},
      {"[A,urn:a];", "[A,urn:a];"},
      {"[B,urn:b];[A,urn:a];", "[A,urn:a];[B,urn:b];"},
      {"[a,u];[B,u];[AB,u];[A,u];", "[A,u];[AB,u];[B,u];[a,u];"},
      {"[A,urn:a];[A,urn:b];", "[A,urn:a];"},  // the first of a name stays
      {"[A,];[,urn:b];", "[,urn:b];[A,];"},
      {"[A,u,v];", "[A,u,v];"},
      {"[A,u]", ""},  // no end
      {"[A,u];[B,u]", "[A,u];"},
      {"[A,u];;[B,u];", "[A,u];"},
      {"[A,u];x;[B,u];", "[A,u];"},
      {"[A,u];[];[B,u];", "[A,u];"},
      {"[A,u];[AB;", "[A,u];[AB,];"},  // runs to its end without "," or "]"
      {"[A,u;", "[A,u];"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(narrow(MetaMetadata::Loading::formatPendingReferences(
                  MetaMetadata::Loading::parsePendingReferences(wide(row.text)))),
              row.written)
        << row.text;
  }
}

/// A session whose dictionary holds, next to the plain elements, a reference (L11) and a collection of references (L12)
/// with the same pending text, and an element that is no reference but has that property (L13).
class ReferenceSession : public SchemeSession {
 public:
  explicit ReferenceSession(const char* pending) {
    using MetaMetadata::MetaReferenceHolder;
    add(std::make_unique<MetaMetadata::MetaReferenceElement>(labelOf(11), MetaReferenceHolder::Keys(),
                                                             Identifier::WeakReference),
        pending);
    add(std::make_unique<MetaMetadata::MetaReferenceCollection>(
            labelOf(12), MetaMetadata::MetaCollectionElement::CollectionSizeLimits(), MetaReferenceHolder::Keys(),
            Identifier::Batch, Identifier::StrongReference),
        pending);
    add(std::make_unique<MetaMetadata::MetaSimpleElement>(labelOf(13), Identifier::Int32), pending);
  }

  /// Allowed sets and pending text of the three, which must not differ in the first two.
  [[nodiscard]] std::string references() const {
    std::istringstream lines(dump(dictionary, Properties::LeftOut));
    std::string sets[2];
    for (std::string line; std::getline(lines, line);) {
      if (line.rfind("L11 ", 0) == 0) sets[0] = line.substr(line.find('['));
      if (line.rfind("L12 ", 0) == 0) sets[1] = line.substr(line.find('['));
    }
    EXPECT_EQ(sets[0], sets[1]);
    EXPECT_EQ(pendingOf(11), pendingOf(12));
    return sets[0] + " " + pendingOf(11) + " / " + pendingOf(13);
  }

 private:
  static Types::UniversalLabel labelOf(int number) {
    return {wide(label(number)).c_str(), Types::StringRepresentationEncodingType::DottedHex};
  }
  void add(Templates::auto_ptr<MetaMetadata::MetaElement> element, const char* pending) {
    element->addProperty(L"XMLTagName", wide(label(1)).c_str());
    element->addProperty(L"XMLNamespaceURI", L"urn:references");
    if (pending != nullptr) element->addProperty(L"UnresolvedMetaMetadataSetsRefs", wide(pending).c_str());
    const Types::UniversalLabel elementLabel = element->universalLabel();
    dictionary.addMetaElement(elementLabel, std::move(element));
  }
  [[nodiscard]] std::string pendingOf(int number) const {
    const auto& properties = dictionary.findMetaElement(labelOf(number))->properties();
    const auto pending = properties.find(L"UnresolvedMetaMetadataSetsRefs");
    return pending == properties.end() ? "none" : narrow(pending->second);
  }
};

TEST(SetReferences, AreResolvedByTheGroupsOfTheirNamespace) {
  const SchemaBuilder alpha =
      schemaOf(group("A", 1), group("B", 2), complexType("AType", ""), complexType("BType", ""));
  const SchemaBuilder abstract = schemaOf(group("A", 1).set("abstract", "true"), complexType("AType", ""));
  const SchemaBuilder twice = schemaOf(group("A", 1), group("A", 2), complexType("AType", ""));
  const SchemaBuilder unkeyed = schemaOf(group("A", 1).drop("G:Key"), complexType("AType", ""));
  const struct {
    const char* pending;
    SchemaBuilder schema;
    bool withAbstractGroups;
    std::string result;
  } cases[] = {
      {"[A,urn:t];[B,urn:beta];", alpha, false, "[K01] [B,urn:beta]; / [A,urn:t];[B,urn:beta];"},
      {"[B,urn:t];[A,urn:t];", alpha, false, "[K01 K02]  / [B,urn:t];[A,urn:t];"},  // in name order
      {"[B,urn:beta];[A,urn:alpha];", alpha, false, "[] [A,urn:alpha];[B,urn:beta]; / [B,urn:beta];[A,urn:alpha];"},
      {"[A,urn:beta];[A,urn:t];", alpha, false, "[] [A,urn:beta]; / [A,urn:beta];[A,urn:t];"},
      {"[a,urn:t];[A,urn:T];", alpha, false, "[] [A,urn:T];[a,urn:t]; / [a,urn:t];[A,urn:T];"},
      {"[B,u];[A,u];", schemaOf(), false, "[] [A,u];[B,u]; / [B,u];[A,u];"},  // a document without groups
      {nullptr, alpha, false, "[]  / none"},
      {"[A,urn:t];", abstract, false, "[] [A,urn:t]; / [A,urn:t];"},
      {"[A,urn:t];", abstract, true, "[K01]  / [A,urn:t];"},
      {"[A,urn:t];", twice, false, "[K02]  / [A,urn:t];"},  // the later of two groups of one name
      {"[A,urn:t];", unkeyed, false, "[] [A,urn:t]; / [A,urn:t];"},
  };
  for (const auto& row : cases) {
    ReferenceSession session(row.pending);
    session.loader.loadAbstractGroups(row.withAbstractGroups);
    ASSERT_EQ(session.loadScheme(row.schema), "ok");
    EXPECT_EQ(session.references(), row.result);
  }
}

TEST(SetReferences, OfLaterElementsWaitForLaterDocuments) {
  SchemeSession session;
  const SchemaBuilder alpha = schemaOf(group("A", 1), complexType("AType", ""));
  const SchemaBuilder beta = schemaOf(group("B", 2), complexType("BType", "")).target("urn:beta");
  const SchemaBuilder later =
      schemaOf(element("Ref", 11).add(derived("t:StrongRefHolder", references({"t:A", "b:B", "c:C"}))))
          .set("xmlns:b", "urn:beta");
  ASSERT_EQ(session.loadScheme(alpha), "ok");
  ASSERT_EQ(session.loadDictionary(later), "ok");
  ASSERT_EQ(session.loadScheme(beta), "ok");
  EXPECT_NE(dump(session.dictionary)
                .find("L11 MetaReferenceElement 29 [K02] "
                      "UnresolvedMetaMetadataSetsRefs=[A,urn:t];[C,];"),
            std::string::npos)
      << dump(session.dictionary);
}

}  // namespace
}  // namespace MXF::Tessel::Test
