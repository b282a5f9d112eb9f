// The index of a document's top-level declarations answers as the queries do that it stands for.

#include "MetaMetadata/XSDLoaderImpl/Names.h"
#include "MetaMetadata/XSDLoaderImpl/SchemaIndex.h"
#include "MetaMetadata/XSDLoaderImpl/XSDLoaderImplData.h"
#include "support/Loading.h"

#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/Initializer.h>
#include <XMLUtils/Released.h>
#include <XMLUtils/UnicodeString.h>

#include <gtest/gtest.h>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMXPathExpression.hpp>
#include <xercesc/dom/DOMXPathResult.hpp>

#include <vector>

namespace MXF::Tessel::Test {
namespace {

using namespace MetaMetadata::Loading;
using Templates::WideString;
using xercesc::DOMXPathNSResolver;

const std::string schemaUri = "http://www.w3.org/2001/XMLSchema";

std::string schema(const std::string& content, const std::string& rootAttributes = "", const std::string& prolog = "") {
  return prolog + "<xs:schema xmlns:xs='" + schemaUri + "' xmlns:x='urn:x' " + rootAttributes + ">" + content +
         "</xs:schema>";
}

// Each name is given twice, to a complex type and an element's type, the second time with another position.
const std::vector<std::string> names = {"A",
                                        "B",
                                        "",
                                        " A",
                                        "A ",
                                        "A B",
                                        "A  B",
                                        "it's",
                                        "''",
                                        "\"",
                                        "a&b",
                                        "&amp;",
                                        "&#65;",
                                        "a<b",
                                        "a\nb",
                                        "a\r\nb",
                                        "a\rb",
                                        "a\r",
                                        "a\r\r\nb",
                                        "a\x7F",
                                        "a\xC2\x85",
                                        "a\tb",
                                        "\xC3\xA9",
                                        "e\xCC\x81",
                                        "\xC2\x80",
                                        "\xC2\xA0",
                                        "\xE2\x80\xA8",
                                        "\xE3\x81\x82",
                                        "\xEE\x80\x80",
                                        "\xEF\xBF\xBD",
                                        "\xF0\x9F\x8E\xAC",
                                        "t:A",
                                        "]",
                                        "[1]",
                                        "'] or @name=['",
                                        "default",
                                        "none"};

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    result += code < 0x30 || c == '<' ? "&#" + std::to_string(code) + ";" : std::string(1, c);
  }
  return result;
}

std::string declarations() {
  std::string text;
  for (int round = 0; round < 2; ++round) {
    for (const std::string& name : names) {
      if (name == "none" || name == "default") continue;
      const std::string value = "='" + escaped(name) + "'/>";
      text += "<xs:complexType name" + value + "<xs:element type" + value;
    }
  }
  return text;
}

const std::string attributeList =
    "<!DOCTYPE xs:schema [<!ENTITY a 'A'><!ATTLIST xs:complexType name CDATA 'default'>"
    "<!ATTLIST xs:element type NMTOKENS 'default'>]>";

const struct {
  const char* what;
  std::string text;
} documents[] = {
    {"many names", schema(declarations())},
    {"attributes as written",
     schema("<xs:complexType name='a\nb'/><xs:complexType name='A\r\nB'/><xs:element type='A\tB'/>"
            "<xs:element type='a&#xA;b'/><xs:complexType name='A&#32;B'/>")},
    {"attributes with a prefix", schema("<xs:complexType x:name='A'/><xs:complexType x:name='B' name='A'/>"
                                        "<xs:element x:type='A'/><xs:element x:type='B' type='A'/>")},
    {"other attributes", schema("<xs:complexType type='A'/><xs:element name='A'/><xs:complexType/><xs:element/>")},
    {"other namespaces", schema("<x:complexType name='A'/><complexType name='A'/><x:element type='A'/>"
                                "<complexType xmlns='" +
                                schemaUri +
                                "' name='A' id='1'/>"
                                "<element xmlns='" +
                                schemaUri + "' type='A'/><xs:element type='A'/>")},
    {"other prefixes", schema("<xs:complexType xmlns:xs='urn:x' name='A'/><x:complexType xmlns:x='" + schemaUri +
                              "' name='A'/><xs:element xmlns:xs='urn:x' type='A'/>")},
    {"other local names", schema("<xs:ComplexType name='A'/><xs:simpleType name='A'/><xs:Element type='A'/>")},
    {"nested declarations",
     schema("<xs:element name='N'><xs:complexType name='A'/></xs:element><xs:complexType name='B'>"
            "<xs:element type='A'/></xs:complexType><xs:complexType name='A'/>")},
    {"other nodes", schema("text<!-- c --><?p d?><![CDATA[c]]><xs:complexType name='A'/>tail<xs:element type='A'/>")},
    {"another root", "<xs:sch xmlns:xs='" + schemaUri + "'><xs:complexType name='A'/><xs:element type='A'/></xs:sch>"},
    {"a schema below the root", "<r>" + schema("<xs:complexType name='A'/><xs:element type='A'/>") + "</r>"},
    {"a root in another namespace",
     "<xs:schema xmlns:xs='urn:x'><xs:complexType name='A'/><xs:element type='A'/></xs:schema>"},
    {"a root in no namespace", "<schema><complexType name='A'/><element type='A'/></schema>"},
    {"empty", schema("")},
    {"a DTD with attribute types", schema(declarations() + "<xs:complexType/><xs:element/>", "", attributeList)},
    {"a DTD with entities", schema("<xs:complexType name='&a;'/><xs:element type=' &a;  B '/>", "", attributeList)},
    {"an empty DTD", schema(declarations(), "", "<!DOCTYPE xs:schema>")},
};

struct Reading {
  explicit Reading(const std::string& text)
      : document(*XMLUtils::loadDocumentFromFile(wide(folder.write("s.xsd", text)).c_str(), *parser)) {}

  TemporaryFolder folder;
  XMLUtils::Released<xercesc::DOMLSParser> parser = createParser();
  xercesc::DOMDocument& document;
};

/// What the loader does: the index where there is one, or else the query.
std::string looked(Reading& reading, const DOMXPathNSResolver& resolver, const std::string& name, bool asType,
                   SchemaIndexes* indexes) {
  const xercesc::DOMNode* found = nullptr;
  const std::string failure = outcomeOf([&] {
    const SchemaIndex* index = indexes == nullptr ? nullptr : indexes->find(reading.document, resolver);
    if (index != nullptr) {
      found = asType ? index->complexTypeNamed(wide(name)) : index->elementOfType(wide(name));
    } else {
      const WideString path = asType ? L"/xs:schema/xs:complexType[@name=" : L"/xs:schema/xs:element[@type=";
      const XMLUtils::UnicodeString query((path + queryLiteral(wide(name)) + L"]").c_str());
      const XMLUtils::Released<xercesc::DOMXPathExpression> expression(
          reading.document.createExpression(query.utf16(), &resolver));
      const XMLUtils::Released<xercesc::DOMXPathResult> result(
          expression->evaluate(&reading.document, xercesc::DOMXPathResult::FIRST_RESULT_TYPE, nullptr));
      if (result->isNode()) found = result->getNodeValue();
    }
  });
  if (found == nullptr) return failure == "ok" ? "none" : failure;
  int position = 0;
  for (const auto* node = found; node->getPreviousSibling() != nullptr; node = node->getPreviousSibling()) ++position;
  return "child " + std::to_string(position);
}

/// Resolvers of a document: as its root has it, with the prefix taken away, and with other meanings of it.
std::vector<DOMXPathNSResolver*> resolversOf(xercesc::DOMDocument& document) {
  std::vector<DOMXPathNSResolver*> resolvers = {document.createNSResolver(document.getDocumentElement()),
                                                document.createNSResolver(nullptr)};
  for (const XMLCh* uri : {u"", u"urn:x", u"urn:y", u"http://www.w3.org/2001/XMLSchema"}) {
    resolvers.push_back(document.createNSResolver(document.getDocumentElement()));
    resolvers.back()->addNamespaceBinding(u"xs", uri);
  }
  return resolvers;
}

TEST(SchemaIndex, AnswersAsTheQueryDoesForEveryDocumentAndResolver) {
  for (const auto& [what, text] : documents) {
    Reading reading(text);
    SchemaIndexes indexes;
    for (const DOMXPathNSResolver* resolver : resolversOf(reading.document)) {
      for (const std::string& name : names) {
        for (const bool asType : {true, false}) {
          EXPECT_EQ(looked(reading, *resolver, name, asType, &indexes),
                    looked(reading, *resolver, name, asType, nullptr))
              << what << ", '" << name << "', xs bound to " << (resolver->lookupNamespaceURI(u"xs") != nullptr);
        }
      }
    }
  }
}

TEST(SchemaIndex, FollowsAResolverThatIsBoundAnew) {
  Reading reading(schema("<xs:complexType name='A'/><x:complexType name='A'/>"));
  SchemaIndexes indexes;
  DOMXPathNSResolver* resolver = reading.document.createNSResolver(reading.document.getDocumentElement());
  const auto answer = [&] { return looked(reading, *resolver, "A", true, &indexes); };
  EXPECT_EQ(answer(), "child 0");
  resolver->addNamespaceBinding(u"xs", u"urn:x");
  EXPECT_EQ(answer(), "none");
  resolver->addNamespaceBinding(u"xs", u"");
  EXPECT_EQ(answer(), "XQillaException: No namespace for prefix 'xs' [err:XPST0081] at :1:2");
  resolver->addNamespaceBinding(u"xs", u"http://www.w3.org/2001/XMLSchema");
  EXPECT_EQ(answer(), "child 0");
}

TEST(SchemaIndex, ServesEveryDocumentOfTheParser) {
  for (const auto& [what, text] : documents) {
    Reading reading(text);
    const DOMXPathNSResolver* resolver = resolversOf(reading.document).back();
    EXPECT_NE(SchemaIndexes().find(reading.document, *resolver), nullptr) << what;
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
