// Reading a document: which file is opened, what of it is kept, which prefixes are recorded, how queries see it.

#include "MetaMetadata/XSDLoaderImpl/DocumentAccess.h"
#include "MetaMetadata/XSDLoaderImpl/XPathEvaluation.h"
#include "support/Loading.h"

#include <XMLUtils/Initializer.h>
#include <XMLUtils/TextConversion.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace MXF::Tessel::Test {
namespace {

using namespace MetaMetadata::Loading;
using ::testing::StartsWith;

/// The outcomes of reading one file as a multiplex, dictionary and scheme schema, each with a fresh loader; one when
/// all agree.
std::string outcomeOfReading(const std::string& path) {
  LoadSession session;
  const std::string multiplex = outcomeOf([&] { session.loader.loadMultiplex(wide(path)); });
  const std::string dictionary = session.loadDictionaryFile(path);
  std::string scheme = LoadSession().loadSchemeFile(path);
  if (multiplex == dictionary && dictionary == scheme) return scheme;
  return "multiplex: " + multiplex + "\ndictionary: " + dictionary + "\nscheme: " + scheme;
}

TEST(DocumentAccess, AnyPathOfTheFileSystemIsOpenedAsItIsGiven) {
  const TemporaryFolder folder;
  const std::string schema = SchemaBuilder().target("urn:SMPTE:S377M").text();
  for (const char* file : {"a b.xsd", "100%.xsd", "%41.xsd", "é/日本.xsd", "\xF0\x9F\x8E\xAC.xsd", "\xFF.xsd",
                           "a#b?c.xsd", "file:a:b.xsd", "&amp;.xsd"}) {
    EXPECT_EQ(outcomeOfReading(folder.write(file, schema)), "ok") << file;
  }
  // Only a multiplex path is read with slashes for backslashes.
  folder.write("a/b.xsd", schema);
  const std::string backslashes = folder.path("a\\b.xsd");
  const std::string notThere = "IOError (26): " + backslashes + " file Not Found!";
  EXPECT_EQ(outcomeOfReading(backslashes), "multiplex: ok\ndictionary: " + notThere + "\nscheme: " + notThere);
  folder.write("a\\b.xsd", schema);
  EXPECT_EQ(outcomeOfReading(backslashes), "ok");
}

TEST(DocumentAccess, WhatIsNoFileIsNotFoundUnderThePathAsGiven) {
  const TemporaryFolder folder;
  for (const std::string& path : {folder.path("none é.xsd"), folder.path("none/"), folder.path(""), std::string()}) {
    EXPECT_EQ(outcomeOfReading(path), "IOError (26): " + path + " file Not Found!");
  }
  const std::string none = folder.path("a/b\\c.xsd");
  EXPECT_EQ(outcomeOfReading(none), "multiplex: IOError (26): " + folder.path("a/b/c.xsd") +
                                        " file Not Found!\ndictionary: IOError (26): " + none +
                                        " file Not Found!\nscheme: IOError (26): " + none + " file Not Found!");
}

TEST(DocumentAccess, MalformedContentIsReportedByPathLineAndColumn) {
  const TemporaryFolder folder;
  const struct {
    const char* content;
    const char* place;
    const char* text;
  } cases[] = {
      {"", "1:1", "invalid document structure"},
      {"text", "1:1", "invalid document structure"},
      {"<a>\n<b></a>", "2:6", "expected end of tag 'b'"},
      {"<a/><b/>", "1:5", "comment or processing instruction expected"},
      {"<a>\n <p:b/></a>", "2:8", "prefix 'p' can not be resolved to namespace URI"},
      {"<a>&none;</a>", "1:10", "entity 'none' not found"},
      {"<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>", "1:39", "recursive entity expansion 'e'"},
      {"<?xml version='1.0' encoding='none'?><a/>", "1:38", "unable to create converter for 'NONE' encoding"},
      {"<?xml version='1.2'?><a/>", "1:22", "unsupported XML version '1.2'"},
      {"<a>\xC3(</a>", "1:1", "invalid byte '(' at position 2 of a 2-byte sequence"},
  };
  for (const auto& [content, place, text] : cases) {
    const std::string path = folder.write("m%20 é.xsd", content);
    EXPECT_EQ(outcomeOfReading(path), "ParseError (33): " + path + ":" + place + ": " + text) << content;
  }
}

/// A schema with one element whose registry name is the given XML.
SchemaBuilder named(const std::string& name) {
  return SchemaBuilder().add(element("A", 1, "Int8").note("D:ElementName", name));
}
std::string nameLoaded(const SchemaBuilder& schema) {
  LoadSession session;
  session.folder.write("outside.txt", "OUTSIDE");
  session.folder.write("outside.dtd", "<!ATTLIST xs:schema targetNamespace CDATA 'urn:outside'><!ENTITY o 'OUTSIDE'>");
  const std::string loaded = session.dictionaryAfter(schema);
  const std::size_t name = loaded.find("; name=");
  return name == std::string::npos ? loaded : loaded.substr(name + 7, loaded.size() - name - 8);
}

std::string entities(const std::string& declarations, const std::string& externalId = "") {
  return "<!DOCTYPE xs:schema " + externalId + "[" + declarations + "]>";
}
/// Declares e1 to e4, each of ten uses of the one before.
std::string nestedEntities() {
  std::string declarations = "<!ENTITY e0 'x'>";
  for (int level = 1; level <= 4; ++level) {
    declarations += "<!ENTITY e" + std::to_string(level) + " '";
    for (int use = 0; use < 10; ++use) declarations += "&e" + std::to_string(level - 1) + ";";
    declarations += "'>";
  }
  return declarations;
}

TEST(DocumentAccess, TheFirstTextIsTakenAsTheDocumentHasIt) {
  const std::string noName = "InvalidMetaElementDeclaration (20): The property 'name' is required.";
  const struct {
    const char* name;
    std::string expected;
  } cases[] = {
      {" a &amp; b&#x20;\n c ", " a & b \n c "},
      {"&#x1F3AC;&#xE9;", "\xF0\x9F\x8E\xAC\xC3\xA9"},
      {"a&e;b&e;", "a in between b in between "},  // one text, entities in place
      {"<![CDATA[a < b]]>", "a < b"},
      {"a<![CDATA[b]]>c", "a"},
      {"<![CDATA[]]>a", noName},  // the empty section is the first text
      {"a<!-- -->b", "a"},
      {"<!-- -->b", "b"},
      {"a<?x y?>b", "a"},
      {"<x>inner</x>a", "a"},
      {"", noName},
      {"<x>inner</x>", noName},
      {" ", " "},
  };
  for (const auto& [name, expected] : cases) {
    EXPECT_EQ(nameLoaded(named(name).prolog(entities("<!ENTITY e ' in between '>"))), expected) << name;
  }
}

TEST(DocumentAccess, NothingOutsideTheFileIsReadAndExpansionIsLimited) {
  const struct {
    std::string doctype;
    const char* name;
    std::string expected;
  } cases[] = {
      {entities("<!ENTITY e SYSTEM 'outside.txt'>"), "a&e;b", "ab"},
      {entities("<!ENTITY e SYSTEM 'http://127.0.0.1:9/none'>"), "a&e;b", "ab"},
      {entities("<!ENTITY % p SYSTEM 'outside.dtd'> %p;"), "a", "a"},
      {"<!DOCTYPE xs:schema SYSTEM 'outside.dtd'>", "a", "a"},
      {"<!DOCTYPE xs:schema PUBLIC '-//X//Y' 'http://127.0.0.1:9/none.dtd'>", "a", "a"},
      {entities("<!ATTLIST xs:schema targetNamespace CDATA 'urn:inside'>"), "a", "a"},
      {entities(nestedEntities()), "&e3;", std::string(1000, 'x')},
  };
  for (const auto& [doctype, name, expected] : cases) {
    EXPECT_EQ(nameLoaded(named(name).prolog(doctype)), expected) << doctype;
    // With the default from outside it would have a target namespace.
    const std::string untargeted = nameLoaded(named(name).prolog(doctype).drop("targetNamespace"));
    const bool inside = doctype.find("urn:inside") != std::string::npos;
    EXPECT_EQ(
        untargeted,
        inside ? "InvalidMetaElementDeclaration (20): No default prefix defined for namespace: urn:inside" : noTarget)
        << doctype;
  }
  const std::string bomb = nameLoaded(named("&e4;").prolog(entities(nestedEntities())));
  EXPECT_THAT(bomb, StartsWith("ParseError (33): /"));
  EXPECT_THAT(bomb, ::testing::HasSubstr("dictionary.xsd:1:"));
  EXPECT_THAT(bomb, ::testing::HasSubstr("more than '10000' entity expansions"));
}

std::string prefixesOf(const XSDLoaderImplData& data) {
  std::string text;
  for (const auto& [uri, prefix] : data.prefixByNamespace) {
    text.append(narrow(uri)).append("=").append(narrow(prefix)).append(" ");
  }
  return text;
}

/// Documents loaded one after the other into the state that the passes work on.
class Documents : public ::testing::Test {
 protected:
  xercesc::DOMDocument& load(const std::string& text) {
    return *loadDocument(data, wide(folder.write(std::to_string(++count_) + ".xml", text)));
  }
  std::string first(xercesc::DOMNode& context, const std::string& query) const {
    std::string text;
    std::string outcome = outcomeOf([&] { text = narrow(evaluateString(context, wide(query), data.nsResolver)); });
    return outcome == "ok" ? text : outcome;
  }

  XSDLoaderImplData data;
  TemporaryFolder folder;

 private:
  int count_ = 0;
};

TEST_F(Documents, TheFirstPrefixOfANamespaceStaysAndTheDefaultNamespaceIsNotRecorded) {
  load("<a xmlns='urn:0' xmlns:z='urn:1' xmlns:b='urn:1' xmlns:c='urn:2'><d xmlns:d='urn:3'/></a>");
  EXPECT_EQ(prefixesOf(data), "urn:1=b urn:2=c ");  // the order of attributes is that of their names
  xercesc::DOMDocument& second = load("<c:a xmlns:a='urn:1' xmlns:c='urn:0' xmlns:e='urn:4'><a:t>x</a:t></c:a>");
  EXPECT_EQ(prefixesOf(data), "urn:0=c urn:1=b urn:2=c urn:4=e ");
  EXPECT_EQ(first(second, "/c:a/a:t/text()"), "x");
  xercesc::DOMDocument& third = load("<p:a xmlns:p='urn:5' xmlns:q='urn:5'>y</p:a>");
  EXPECT_EQ(first(third, "/p:a/text()") + first(third, "/q:a/text()"), "yy");
}

TEST_F(Documents, QueriesOnAnyDocumentUseTheBindingsOfTheLatest) {
  xercesc::DOMDocument& document = load("<a xmlns:p='urn:1' xmlns:o='urn:o'><p:t>1</p:t><t xmlns='urn:2'>2</t></a>");
  EXPECT_EQ(first(document, "/a/p:t/text()"), "1");
  load("<a xmlns:p='urn:2'/>");
  EXPECT_EQ(first(document, "/a/p:t/text()"), "2");
  EXPECT_THAT(first(document, "/a/o:t/text()"), StartsWith("XQillaException: No namespace for prefix 'o'"));
}

TEST_F(Documents, AQueryGivesItsFirstNodeInDocumentOrderOrNothing) {
  xercesc::DOMDocument& document =
      load("<a x='v' xmlns:xs='http://www.w3.org/2001/XMLSchema'><b>1<c>2</c></b><b>3</b></a>");
  xercesc::DOMNode& b = *document.getDocumentElement()->getFirstChild();
  const struct {
    xercesc::DOMNode& context;
    const char* query;
    const char* text;
  } cases[] = {
      {document, "/a/b/text()", "1"}, {document, "/a/@x", "v"},   {document, "//c/text()", "2"},
      {document, "//b/text()", "1"},  {b, "/a/b[2]/text()", "3"}, {b, "./c/text()", "2"},
      {b, "//b[2]/text()", "3"},      {document, "/b", ""},       {document, "/", ""},
      {document, "/a/b", ""},         {document, "1 + 1", ""},    {b, "string(.)", ""},
  };
  for (const auto& [context, query, text] : cases) EXPECT_EQ(first(context, query), text) << query;

  for (int i = 1; i <= 300; ++i) {  // more texts than are kept compiled
    EXPECT_EQ(first(document, "/a/b[" + std::to_string(i) + "]/text()"), i == 1 ? "1" : i == 2 ? "3" : "");
  }
  EXPECT_EQ(first(document, "/a/@x"), "v");

  Elements elements;
  for (const XMLCh* query : {u"/a/b", u"//c", u"/a"}) selectElements(document, query, data.nsResolver, elements);
  std::string names;
  for (const xercesc::DOMElement* element : elements) names += narrow(XMLUtils::toWstring(element->getTagName()));
  EXPECT_EQ(names, "bbca");  // appended, each in document order
}

TEST_F(Documents, RootAttributesAndADocumentWithoutRoot) {
  xercesc::DOMDocument& document =
      load("<a xmlns='urn:0' xmlns:p='urn:1' targetNamespace='urn:t'><b xmlns:q='q'/></a>");
  EXPECT_EQ(narrow(targetNamespaceOf(document)), "urn:t");
  for (const auto& [prefix, uri] : {std::pair("p", "urn:1"), {"q", ""}, {"", ""}}) {
    EXPECT_EQ(narrow(namespaceForPrefix(document, wide(prefix))), uri) << prefix;
  }
  const auto empty =
      XMLUtils::Released<xercesc::DOMDocument>(XMLUtils::Initializer::instance().domImplementation().createDocument());
  EXPECT_EQ(outcomeOf([&] { registerNamespaces(data, *empty); }),
            "ParseError (33): document -> getDocumentElement (): Unable to retrieve root element from document!");
}

TEST(DocumentAccess, ASchemaThatDoesNotBindXsFailsAtEachBoundaryInItsWayEachTime) {
  const std::string unbound = "<schema xmlns='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:SMPTE:S377M'/>";
  const std::string text = "No namespace for prefix 'xs' [err:XPST0081] at :1:2";
  LoadSession session;
  const std::string path = session.folder.write("unbound.xsd", unbound);
  EXPECT_EQ(outcomeOf([&] { session.loader.loadMultiplex(wide(path)); }), "ok");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(session.loadDictionaryFile(path), "ParseError (33): XQillaException:: " + text);
    EXPECT_EQ(session.loadSchemeFile(path), "XQillaException: " + text);
    EXPECT_EQ(session.loadDictionary(named("A name")), i == 0 ? "ok" : "MetaElementAlreadyLoaded (44): " + label(1));
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
