// Whatever the query, a document of ours gives what one of XQilla's own implementation gives.

#include "MetaMetadata/DictionaryLoader/SchemaFlavour.h"
#include "loader/support/SchemaBuilder.h"
#include "loader/support/TemporaryFolder.h"
#include "support/Comparison.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::Test {
namespace {

using MetaMetadata::Loading::QuerySet;

const std::string schemaUri = "http://www.w3.org/2001/XMLSchema";

const std::string mixed = R"(<?xml version="1.0"?>
<!DOCTYPE xs:schema [
 <!ENTITY e "ent&#38;#38;ity">
 <!ATTLIST xs:element name ID #IMPLIED toks NMTOKENS #IMPLIED def CDATA "default">]>
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:x="urn:x" xmlns="urn:d" targetNamespace="urn:t">
<!-- c --><?pi data?><xs:element name="a" toks=" a  b " x:name="b" type=""><xs:annotation>
<xs:appinfo source="s">one</xs:appinfo><xs:appinfo source="s">two<![CDATA[cd]]></xs:appinfo></xs:annotation></xs:element>
<xs:element name="b" other="&e; &#13;&#10;&#9;x" num="12"/><name/><name xmlns=""/><x:element name="c">&e;</x:element>
</xs:schema>)";

const Bindings ofRoot;
const std::vector<Bindings> bindingCases = {
    ofRoot,
    {Bindings::From::Nothing, {}},
    {Bindings::From::NullNode, {}},
    {Bindings::From::NullNode, {{"xs", schemaUri}, {"x", "urn:other"}}},
    {Bindings::From::Root, {{"xs", ""}}},                                     // taken away
    {Bindings::From::Root, {{"xs", "urn:x"}, {"xml", "urn:x"}}},              // means something else
    {Bindings::From::Root, {{"", "urn:d"}, {"x", "urn:d"}, {"x", "urn:x"}}},  // the latest counts
    {Bindings::From::Root, {{"", "urn:x"}, {"late", "urn:x"}}},
};

const std::vector<std::string> paths = {"/xs:schema/xs:element",
                                        "/xs:schema/*[./xs:annotation/xs:appinfo/@source='s']",
                                        ".//@name",
                                        "//@*",
                                        "//node()",
                                        "//text()",
                                        "//comment()",
                                        "//processing-instruction()",

                                        "/",
                                        "/*",
                                        ".",
                                        "..",
                                        "ancestor::*",
                                        "following-sibling::*",
                                        "preceding::*",
                                        "(//*)[last()]",
                                        "//*[position()=2]",
                                        "//*[last()]",
                                        "//*[2]/..",
                                        "reverse(//*)",
                                        "(//@name|//*)",
                                        "//* except //xs:*",
                                        "//@name/..",
                                        "//name",
                                        "//*:name",
                                        "//x:*",
                                        "//late:*",
                                        "root(.)",
                                        "id('a')",
                                        "//*[.='two']",
                                        "//*[../@targetNamespace='urn:t']",
                                        "(1, 'a', ., 2)",
                                        "(., 1)"};

const std::vector<std::string> values = {"()",
                                         "1",
                                         "1.5",
                                         "-1",
                                         "2147483648",
                                         "1e300",
                                         "1 to 3",
                                         "'x'",
                                         "'12'",
                                         "''",
                                         "true()",
                                         "1 div 0e0",
                                         "number('x')",
                                         "count(//*)",
                                         "count(//namespace::*)",
                                         "string(/)",
                                         "string(.)",
                                         "name()",
                                         "namespace-uri(.)",
                                         "position()",
                                         "last()",
                                         "data(//@name)",
                                         "data(//@toks)",
                                         "@name/string()",
                                         "boolean(@name='a')",
                                         "@name='a'",
                                         "('a','b') = 'b'",
                                         "xs:date('2020-01-01')",
                                         "xs:anyURI('x')",
                                         "QName('u','p:l')",
                                         "base-uri(.)",
                                         "document-uri(/)",
                                         "static-base-uri()",
                                         "default-collation()",
                                         "compare('a','b')",
                                         "matches('abc','b')",
                                         "tokenize('a b',' ')",
                                         "for $i in 1 to 3 return $i * 2",
                                         "some $x in //@name satisfies $x='b'",
                                         "if (@name) then 1 else 'none'",
                                         "xs:QName('x:e')",
                                         "for $n in ('x:e','xs:e') return resolve-QName($n, /*)",
                                         "current-dateTime() instance of xs:dateTime"};

const std::vector<std::string> failures = {"",
                                           "  ",
                                           "/a[",
                                           "a b",
                                           "1 +",
                                           "'abc",
                                           "/xs:schema/",
                                           "//",
                                           "<a/>",
                                           "1; 2",
                                           "$v",
                                           "foo()",
                                           "fn:foo()",
                                           "x:foo()",
                                           "none:a",
                                           "@none:a",
                                           "xqilla:foo()",
                                           "xdt:a",
                                           "local:x()",
                                           "xml:a",
                                           "@xml:lang",
                                           "xmlns:a",
                                           "1 idiv 0",
                                           "xs:integer('a')",
                                           "xs:element[1 = 'a']",
                                           "//*[@num + 'a']",
                                           "@num cast as xs:integer",
                                           "//*[@num=12]",
                                           "//*[@num<13]",
                                           "//*[@name=3]",
                                           "(1, xs:integer(//@name[1]))",
                                           "1 to 'a'",
                                           "error()",
                                           "error(xs:QName('x:e'),'text')",
                                           "doc('nothing')",
                                           "collection()",
                                           "exactly-one(())",
                                           "xs:none('a')",
                                           "'a' + 1",
                                           "(1,2)[. = 'a']",
                                           "not(1, 2)"};

TEST(Queries, OfTheLoaderSelectTheSameNodes) {
  for (const SchemaFlavour flavour : {SchemaFlavour::Urn, SchemaFlavour::RegistryUri}) {
    const Declaration used =
        property("t:A", "Req").note("G:LocalTag", "3C.01").note("G:Value", "5").note("G:Semantics", "x");
    Comparison schema(
        SchemaBuilder(flavour)
            .add(import("urn:u", "u.xsd") + import("urn:u", "v.xsd"))
            .add(element("A", 1, "t:Int32").documentation("A <b>and</b> more").note("D:Length", "4"))
            .add(element("B", 2).add(derived("t:Array", items("t:A"))))
            .add(element("C", 3).add(derived("t:StrongReference", references({"t:G", "t:H"}))))
            .add(group("G", 1) + group("G", 2))
            .add(complexType("GType", used + attributeProperty("t:B"), "t:Base") + complexType("Base", used))
            .text());
    const QuerySet queries = MetaMetadata::Loading::queriesOf(flavour);
    std::vector<std::string> texts = {"./@name",
                                      "./*/*/@base",
                                      "./xs:annotation/xs:documentation/text()",
                                      "./*/*/*/xs:choice/xs:element/@ref",
                                      "/xs:schema/xs:complexType[@name='Base']",
                                      "./xs:complexType/xs:complexContent/*[@base]/xs:sequence/xs:element/@name",
                                      "/xs:schema/xs:element[@type='t:GType']",
                                      "/xs:schema/xs:import[@namespace='urn:u']/@schemaLocation"};
    for (const auto* text : {queries.elementDeclarations, queries.groupDeclarations, queries.groupElementProperties,
                             queries.groupAttributeProperties, queries.requiredStatus, queries.distinguishedValue,
                             queries.localTag, queries.semanticsValidation, queries.elementUL, queries.groupKey}) {
      texts.push_back(utf8(text->utf16()));
    }
    for (const wchar_t* text : {queries.elementName, queries.elementLength, queries.groupName}) {
      texts.push_back(narrow(text));
    }
    schema.expectEqual(texts, ofRoot, 3);
    schema.expectEqual(texts, {Bindings::From::NullNode, {}}, 20);
    EXPECT_EQ(schema.firstOf("/xs:schema/xs:complexType[@name='Base']", ofRoot), "/0/8");
  }
}

TEST(Queries, OfAnyKindGiveTheSameItems) {
  Comparison document(mixed);
  for (const auto& queries : {paths, values}) document.expectEqual(queries, ofRoot);
  EXPECT_EQ(document.firstOf("//*[.='two']", ofRoot), "no node");
  EXPECT_EQ(document.firstOf("//xs:element[2]", ofRoot), "/1/5");
}

TEST(Queries, FailWithTheSameCodeAndText) {
  Comparison document(mixed);
  document.expectEqual(failures, ofRoot, 5);
  EXPECT_EQ(document.firstOf("none:a", ofRoot),
            "XQillaException 51: No namespace for prefix 'none' [err:XPST0081] at :1:1");
}

TEST(Queries, AreReadUnderTheResolverThatComesWithThem) {
  // One parser, one text after the other under each resolver: what was compiled under one does not serve another.
  Comparison document(mixed);
  for (const auto& queries : {paths, values, failures}) {
    for (const std::string& query : queries) {
      for (const Bindings& bindings : bindingCases) document.expectEqual(query, bindings, 30);
    }
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
