// Document types: entities that expand, declarations in great number, default values that repeat.

#include "support/HostileLoad.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::Test {
namespace {

/// A schema whose element A has the XML as registry name, with an internal document type.
std::string schemaDeclaring(const std::string& declarations, const std::string& name = "A name",
                            const std::string& content = "") {
  return SchemaBuilder()
      .prolog("<!DOCTYPE xs:schema [" + declarations + "]>")
      .add(element("A", 1, "Int32").note("D:ElementName", name))
      .add(content)
      .text();
}
std::string elementNamed(const std::string& name) {
  return replaced(elementA, "A name", name);
}
std::string entity(const std::string& name, const std::string& value) {
  return "<!ENTITY " + name + " '" + value + "'>";
}
std::string expanded(const std::string& place) {
  return "ParseError (33): F/hostile.xsd:" + place +
         ": parser has encountered more than '10000' entity expansions in the document; this is the limit imposed by "
         "the application";
}

TEST(Entities, AreExpandedAtMostTenThousandTimesTheirLength) {
  const std::string longest(4'096, 'x');
  const std::string nested = entity("e0", "ha") + repeated(11, [](std::size_t level) {
                               return entity(numbered("e", level + 1), times(10, "&" + numbered("e", level) + ";"));
                             });
  const std::string content = "<a>" + times(10'001, "&e;") + "</a>";
  const std::string value = "<a b='" + times(10'001, "&e;") + "'/>";
  expectOutcome("longest", Load::Dictionary, schemaDeclaring(entity("e", longest), "&e;"), elementNamed("x{4096}"));
  expectOutcome("longer", Load::Dictionary, schemaDeclaring(entity("e", longest + "x")),
                limitExceeded("1:4133", "4096 characters in an entity"));
  expectOutcome("100,000 characters", Load::Dictionary, schemaDeclaring(entity("e", std::string(100'000, 'x'))),
                limitExceeded("1:100036", "4096 characters in an entity"));
  expectOutcome("as often as allowed", Load::Dictionary, schemaDeclaring(entity("e", "x"), times(10'000, "&e;")),
                elementNamed("x{10000}"));
  expectOutcome("as long and as often as allowed", Load::Dictionary,
                schemaDeclaring(entity("e", longest), times(10'000, "&e;")), elementNamed("x{40960000}"));
  expectOutcome("once more in a text", Load::Dictionary, schemaDeclaring(entity("e", "x"), "A name", content),
                expanded("1:30437"));
  expectOutcome("once more in an attribute", Load::Dictionary, schemaDeclaring(entity("e", "x"), "A name", value),
                expanded("1:30440"));
  expectOutcome("nested", Load::Scheme, schemaDeclaring(nested, "&e11;"), expanded("1:1007"));
  expectOutcome("nested in an attribute", Load::Multiplex, schemaDeclaring(nested, "A name", "<a b='&e11;'/>"),
                expanded("1:1061"));
  expectOutcome("recursive", Load::Dictionary, schemaDeclaring(entity("a", "&b;") + entity("b", "&a;"), "&a;"),
                "ParseError (33): F/hostile.xsd:1:405: recursive entity expansion 'a'");
}

TEST(Entities, OfTheDocumentTypeDoNotNest) {
  const auto entities = [](const char* reference) {
    return entity("% e0", "<!-- -->") + repeated(8, [&](std::size_t level) {
             return entity(numbered("% e", level + 1), times(10, reference + numbered("e", level) + ";"));
           });
  };
  expectOutcome("nested", Load::Dictionary, schemaDeclaring(entities("&#37;") + "%e8;"),
                limitExceeded("1:144", "0 references in a parameter entity"));
  // Not allowed within declarations of an internal subset at all.
  expectOutcome(
      "expanded in a value", Load::Dictionary, schemaDeclaring(entities("%")),
      "ParseError (33): F/hostile.xsd:1:63: parameter entity references are not allowed inside markup in internal "
      "subset");
  // The parser puts a blank before and after each.
  const std::string blanks = entity("% e", std::string(3'998, ' '));
  expectOutcome("often", Load::Dictionary, schemaDeclaring(blanks + times(250, "%e;")), elementA);
  expectOutcome("once more", Load::Dictionary, schemaDeclaring(blanks + times(251, "%e;")),
                limitExceeded("1:4789", "1000000 characters between the declarations of a document type"));
  expectOutcome("comments of no text", Load::Dictionary,
                schemaDeclaring(entity("% e", times(500, "<!---->")) + times(1'000, "%e;")),
                limitExceeded("1:4396", "1000000 characters between the declarations of a document type"));
  expectOutcome("empty ones", Load::Dictionary, schemaDeclaring(entity("% e", "") + times(100'000, "%e;")),
                limitExceeded("1:49153", "11000 references to parameter entities"));
  expectOutcome("300,000 times", Load::Dictionary, schemaDeclaring(blanks + times(300'000, "%e;")),
                limitExceeded("1:4789", "1000000 characters between the declarations of a document type"));
}

TEST(DocumentTypes, AreLimitedInSizeAndDeclarations) {
  const auto declared = [](std::size_t count, const std::string& before, const std::string& after) {
    return repeated(count, [&](std::size_t i) { return numbered(before, i) + after; });
  };
  const struct {
    const char* what;
    const char* before;
    const char* after;
    std::size_t atLimit;
    const char* place;
  } kinds[] = {
      {"elements", "<!ELEMENT b", " ANY>", 1'000, "1:18932"},
      {"attributes and their lists", "<!ATTLIST b a", " CDATA #IMPLIED>", 500, "1:15943"},
      {"empty lists", "<!ATTLIST b", ">", 1'000, "1:14928"},
      {"entities", "<!ENTITY e", " 'x'>", 1'000, "1:17931"},
      {"notations", "<!NOTATION n", " SYSTEM 'x'>", 1'000, "1:26939"},
  };
  const std::string limit = "1000 declarations in a document type";
  for (const auto& [what, before, after, atLimit, place] : kinds) {
    expectOutcome(what, Load::Dictionary, schemaDeclaring(declared(atLimit, before, after)), elementA);
    expectOutcome(what, Load::Dictionary, schemaDeclaring(declared(atLimit + 1, before, after)),
                  limitExceeded(place, limit));
    expectOutcome(what, Load::Dictionary, schemaDeclaring(declared(100'000, before, after)),
                  limitExceeded(place, limit));
  }
  const std::string size = "1048576 bytes in a document type";
  constexpr std::size_t large = 2'000'000;
  const struct {
    const char* what;
    std::string declaration;
  } shapes[] = {
      {"blanks", std::string(large, ' ')},
      {"comment", "<!--" + std::string(large, 'x') + "-->"},
      {"processing instruction", "<?a " + std::string(large, 'x') + "?>"},
      {"choice", "<!ELEMENT b (" + times(large / 4, "c |") + " d)>"},
      {"parentheses", "<!ELEMENT b " + std::string(large, '(') + "c" + std::string(large, ')') + ">"},
      {"enumeration", "<!ATTLIST b c (" + declared(200'000, "v", "|") + "v) 'v'>"},
      {"attribute list", "<!ATTLIST b " + times(1'000, "c CDATA '" + std::string(large / 1'000, 'x') + "' ") + ">"},
  };
  for (const auto& [what, declaration] : shapes) {
    expectOutcome(what, Load::Dictionary, schemaDeclaring(declaration), limitExceeded("1:1064961", size));
  }
  expectOutcome("deep content model", Load::Dictionary,
                schemaDeclaring("<!ELEMENT b " + std::string(100'000, '(') + "c" + std::string(100'000, ')') + ">"),
                elementA);
}

TEST(DocumentTypes, AreLimitedInWhatTheirAttributesAdd) {
  const auto lists = [](std::size_t count, const char* type) {
    return repeated(count, [&](std::size_t i) { return numbered("<!ATTLIST b a", i) + type; });
  };
  const std::string noDefaults = lists(500, " CDATA #IMPLIED>");
  expectOutcome("compared at the limit", Load::Dictionary,
                schemaDeclaring(noDefaults, "A name", times(200'000, "<b/>")), elementA);
  expectOutcome("one more", Load::Dictionary, schemaDeclaring(noDefaults, "A name", times(200'001, "<b/>")),
                limitExceeded("1:816310", "100000000 comparisons with declared attributes"));

  // After each list the parser makes all so far: the sum of 1 to 446 is 99,681.
  const std::string limit = "100000 attributes with default values";
  const std::string empty = lists(446, " CDATA ''>");
  expectOutcome("lists", Load::Dictionary, schemaDeclaring(empty), elementA);
  expectOutcome("one more list", Load::Dictionary, schemaDeclaring(lists(447, " CDATA ''>")),
                limitExceeded("1:11534", limit));
  expectOutcome("elements that leave them out", Load::Dictionary,
                schemaDeclaring("<!ATTLIST b c CDATA ''>", "A name", times(99'999, "<b/>")), elementA);
  expectOutcome("one more element", Load::Dictionary,
                schemaDeclaring("<!ATTLIST b c CDATA ''>", "A name", times(100'000, "<b/>")),
                limitExceeded("1:400439", limit));
}

TEST(DocumentTypes, AreLimitedInWhatTheirDefaultValuesAdd) {
  const auto defaults = [](std::size_t elements) {
    return schemaDeclaring("<!ATTLIST b c CDATA '" + std::string(10'000, 'x') + "'>", "A name",
                           times(elements, "<b/>"));
  };
  const std::string limit = "1000000 characters in default values of attributes";
  expectOutcome("at the limit", Load::Dictionary, defaults(100), elementA);
  expectOutcome("one more", Load::Dictionary, defaults(101), limitExceeded("1:10843", limit));
  expectOutcome("many", Load::Dictionary, defaults(100'000), limitExceeded("1:10843", limit));
}

}  // namespace
}  // namespace MXF::Tessel::Test
