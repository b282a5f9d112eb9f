// Comparing attributes with string literals by text gives what comparing their typed elementsWithValues gives.

#include "support/Comparison.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace MXF::Tessel::Test {
namespace {

const std::string elementsWithValues = R"(
 <e a="v" b="w" x:a="n"/><e a="w" x:a="v"/><e x:a="v"/><e/><e a=""/><e a="it's" b='say "x"'/><e a="a&amp;b"/>
 <e a="a&lt;b" b="&amp;amp;"/><e a="&#x1F3AC;" b="&#xE9;"/><e a="e&#x301;"/><e a="a&#10;b" b="a
b"/><e a="a&#13;&#10;b" b="a&#9;b"/><e a=" v" b="v "/><e a="a  b" b=" a b "/><e a="12" b="12.0"/><e a="true"/>
 <f a="v"><e a="w"/></f>)";
const std::string untyped = "<r xmlns:x='urn:x'>" + elementsWithValues + "</r>";
const std::string typed = R"(<!DOCTYPE r [
 <!ENTITY v "v"><!ENTITY quoted "it's &#38;#38;"><!NOTATION n SYSTEM "n">
 <!ATTLIST e a NMTOKENS #IMPLIED b NMTOKEN "default">
 <!ATTLIST t id ID #IMPLIED ref IDREF #IMPLIED refs IDREFS #IMPLIED token NMTOKEN #IMPLIED tokens NMTOKENS #IMPLIED
             choice (v|w) "v" fixed CDATA #FIXED "v" x:a CDATA "v" entity ENTITY #IMPLIED notation NOTATION (n) "n">]>
<r xmlns:x="urn:x">)" + elementsWithValues +
                          R"(
 <t id="v"/><t id="w" ref="v" refs="v  w" token=" v " tokens=" v  w "/><t choice="w" a="&v;" b="&quoted;"/></r>)";

const std::vector<std::string> literals = {"'v'",
                                           "\"v\"",
                                           "''",
                                           "\"\"",
                                           "'it''s'",
                                           "\"it's\"",
                                           "'say \"x\"'",
                                           R"("say ""x""")",
                                           "'a&b'",
                                           "'a&amp;b'",
                                           "'a<b'",
                                           "'a&lt;b'",
                                           "'&amp;'",
                                           "'&#118;'",
                                           "'\xF0\x9F\x8E\xAC'",
                                           "'\xC3\xA9'",
                                           "'e\xCC\x81'",
                                           "'a b'",
                                           "'a  b'",
                                           "'a\nb'",
                                           "'a\r\nb'",
                                           "'a\rb'",
                                           "'a\tb'",
                                           "' v'",
                                           "'v '",
                                           "'v w'",
                                           "'12'",
                                           "'12.0'",
                                           "'true'",
                                           "'default'",
                                           "'it''s &'",
                                           "'n'"};

const std::vector<std::string> forms = {"//*[@a=L]",
                                        "//*[L=@a]",
                                        "//*[@a!=L]",
                                        "//*[L!=@a]",
                                        "//*[@x:a=L]",
                                        "//*[@*=L]",
                                        "//@*[.=L]",
                                        "//*[(@a,@b)=L]",
                                        "//*[(@b|@x:a)=L]",
                                        "//*[(@a,@b)!=L]",
                                        "//*[@none=L]",
                                        "//*[not(@a=L)]",
                                        "//*[@a eq L]",
                                        "//*[@a=(L,'w')]",
                                        "//*[*/@a=L]",
                                        "//*[@a[.=L]=L]",
                                        "//*[@a=L or @b=L]",
                                        "//*[@a=L][1]/@b",
                                        "//*[@a=L]/*/@a",
                                        "//@a=L",
                                        "(//*[@a=L])[last()]",
                                        "//*[@a<L]",
                                        "//*[(@a,.)=L]",
                                        "//*[string(@a)=L]",
                                        "//t[@*=L]/@*[.=L]",
                                        "//t[(@id,@refs)=L]",
                                        "//*[@tokens=L]",
                                        "//*[data(@refs)=L]",
                                        "every $n in //@a satisfies $n=L",
                                        "//*[(if (@b) then @b else @a)=L]",
                                        "//*[(for $n in @* return $n)=L]"};

std::string withLiteral(std::string form, const std::string& literal) {
  for (std::size_t place = form.find('L'); place != std::string::npos; place = form.find('L', place + literal.size())) {
    form.replace(place, 1, literal);
  }
  return form;
}

TEST(AttributeComparison, GivesWhatComparingTypedValuesGives) {
  constexpr std::size_t onlyTheDocument = 1000;
  for (const std::string& xml : {untyped, typed}) {
    Comparison document(xml);
    for (const std::string& form : forms) {
      for (const std::string& literal : literals) {
        document.expectEqual(withLiteral(form, literal), Bindings(), onlyTheDocument);
      }
    }
  }
}

TEST(AttributeComparison, ReadsLiteralsAndValuesAsTheyAre) {
  Comparison plain(untyped);
  const struct {
    const char* condition;
    const char* place;
  } cases[] = {
      {"@a='v'", "/0/1"},
      {"@x:a='v'", "/0/2"},
      {"@a=''", "/0/5"},
      {"@a='it''s'", "/0/6"},
      {R"(@b="say ""x""")", "/0/6"},
      {"@a='a&b'", "/0/7"},
      {"@b='&amp;'", "/0/9"},
      {"@a='\xF0\x9F\x8E\xAC'", "/0/10"},
      {"@a='a\nb'", "/0/12"},
      {"@b='a b'", "/0/12"},
      {"@b='a\tb'", "/0/13"},
      {"@a=' v'", "/0/14"},
      {"@none=''", "no node"},
  };
  for (const auto& [condition, place] : cases) {
    EXPECT_EQ(plain.firstOf(std::string("//*[") + condition + "]", Bindings()), place) << condition;
  }
  Comparison withTypes(typed);
  EXPECT_EQ(withTypes.firstOf("//e[@b='default']", Bindings()), "/1/2");
  EXPECT_EQ(withTypes.firstOf("//t[@fixed='v']/@choice[.='v']", Bindings()), "/1/21/@choice");
}

}  // namespace
}  // namespace MXF::Tessel::Test
