// Where things were declared: for what is loaded, and for what is wrong with it.

#include "support/Loading.h"

#include <Exceptions/Exceptions.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

namespace MXF::Tessel::Test {
namespace {

using MetaMetadata::MetaMetadataSet;

/// In the texts below this stands where the declaration in question begins. It is taken out before they are read.
constexpr char mark = '~';

/// Writes the texts under their names. @return the place of the mark, PATH:LINE:COLUMN.
std::string write(const TemporaryFolder& folder, const std::map<std::string, std::string>& texts) {
  std::string place;
  for (auto [file, text] : texts) {
    const std::size_t at = text.find(mark);
    if (at != std::string::npos) {
      text.erase(at, 1);
      const std::string before = text.substr(0, at);
      const auto line = 1 + std::count(before.begin(), before.end(), '\n');
      const std::size_t start = before.rfind('\n') + 1;  // of the line; 0 if there is none
      place =
          folder.path(file) + ":" + std::to_string(line) + ":" + std::to_string(wide(before.substr(start)).size() + 1);
    }
    folder.write(file, text);
  }
  return place;
}

const std::string markText(1, mark);
std::string marked(const std::string& declaration) {
  return markText + declaration;
}

const std::string theOnlyElement = SchemaBuilder().add(element("A", 1, "t:Int32")).text();
const SchemaBuilder importing = SchemaBuilder()
                                    .set("xmlns:u", "urn:u")
                                    .add(import("urn:u", "u.xsd") + "\n" + group("G", 1).text() + "\n" + markText +
                                         complexType("GType", "", "u:BType"));

struct FaultCase {
  const char* what;
  std::string dictionary;
  std::string scheme;
  std::string imported;
};
const FaultCase faultCases[] = {
    {"an element's label", SchemaBuilder().add("\n\n  " + marked(element("A", 1).note("D:ElementUL", "x"))).text(), "",
     ""},
    {"a type, found by a query that fails",
     SchemaBuilder()
         .add(element("A", 1, "t:Int32") + "<!-- \xF0\x9F\x8E\xAC -->" + marked(element("B", 2, "t:None")))
         .text(),
     "", ""},
    {"the second of two labels",
     SchemaBuilder().add(element("A", 1, "t:Int32") + "\r\n" + marked(element("B", 1, "t:Int32"))).text(), "", ""},
    {"the type of a collection's items", SchemaBuilder().add("\n" + marked(element("A", 1, "t:Array"))).text(), "", ""},
    {"a group's key", theOnlyElement, SchemaBuilder().add("\n\n\n" + marked(group("G", 1).note("G:Key", "x"))).text(),
     ""},
    {"a group's type", theOnlyElement, SchemaBuilder().add("text" + marked(group("G", 1))).text(), ""},
    {"an attribute", theOnlyElement,
     SchemaBuilder()
         .add(group("G", 1) + complexType("GType", property("t:A") + "\n " + marked(property("t:None"))))
         .text(),
     ""},
    {"a local tag", theOnlyElement,
     SchemaBuilder().add(group("G", 1) + complexType("GType", marked(property("t:A").note("G:LocalTag", "1")))).text(),
     ""},
    {"a distinguished value", SchemaBuilder().add(element("A", 1, "t:UUID")).text(),
     SchemaBuilder()
         .add(group("G", 1) + complexType("GType", "\n" + marked(property("t:A").note("G:Value", "one"))))
         .text(),
     ""},
    {"a limit", theOnlyElement,
     SchemaBuilder()
         .add(group("G", 1) +
              complexType("GType", property("t:A") + marked(property("t:A").note(
                                                         "G:Value", "{" + std::string(1'000'000, ',') + "}"))))
         .text(),
     ""},
    {"a type that is its own base", theOnlyElement,
     SchemaBuilder()
         .add(group("G", 1) + "\n" + marked(complexType("GType", property("t:A"), "t:HType")) +
              complexType("HType", "", "t:GType"))
         .text(),
     ""},
    {"an attribute in an import", theOnlyElement, SchemaBuilder(importing).text(),
     SchemaBuilder().target("urn:u").add("<!--\n-->" + complexType("BType", marked(property("t:A", "Maybe")))).text()},
    {"a base type that is nowhere", theOnlyElement, importing.text(), SchemaBuilder().target("urn:u").text()},
    {"an import that is nowhere", theOnlyElement, importing.text(), ""},
};

TEST(Origins, AFaultIsReportedWithItsDeclaration) {
  for (FaultCase row : faultCases) {
    LoadSession session;
    std::map<std::string, std::string> texts = {{"d.xsd", row.dictionary}, {"s.xsd", row.scheme}};
    // The innermost declaration is the one that counts.
    if (!row.imported.empty() && row.imported.find(mark) != std::string::npos) {
      texts["s.xsd"].erase(row.scheme.find(mark), 1);
    }
    if (!row.imported.empty()) texts["u.xsd"] = row.imported;
    const std::string place = write(session.folder, texts);
    try {
      session.loader.loadDictionary(wide(session.folder.path("d.xsd")), session.dictionary);
      session.loader.loadScheme(wide(session.folder.path("s.xsd")), session.dictionary);
      ADD_FAILURE() << row.what;
    } catch (const Exceptions::BaseException& fault) {
      EXPECT_EQ(narrow(fault.location().toString()), place) << row.what << ": " << narrow(fault.what());
      const std::string start = narrow(fault.message()) + " (declared at " + place + ") [";
      EXPECT_EQ(narrow(fault.what()).substr(0, start.size()), start) << row.what;
    }
  }
}

TEST(Origins, ASetThatTheDictionaryHoldsIsReportedWithTheNewDeclaration) {
  LoadSession session;
  const std::string scheme = SchemaBuilder().add("\n" + marked(group("G", 1)) + complexType("GType", "")).text();
  const std::string place = write(session.folder, {{"a.xsd", scheme}});
  EXPECT_EQ(session.loadSchemeFile(session.folder.path("a.xsd")), "ok");
  try {
    session.loader.loadScheme(wide(session.folder.path("a.xsd")), session.dictionary);
    ADD_FAILURE();
  } catch (const Exceptions::MetaMetadataSetAlreadyLoaded& fault) {
    EXPECT_EQ(narrow(fault.location().toString()), place);
  }
}

TEST(Origins, TextThatIsNotWellFormedHasThePlaceInItsMessage) {
  LoadSession session;
  try {
    session.loader.loadMultiplex(wide(session.folder.write("m.xsd", "<a>\n <b>\n</a>")));
    ADD_FAILURE();
  } catch (const Exceptions::ParseError& fault) {
    EXPECT_EQ(narrow(fault.path()), session.folder.path("m.xsd"));
    EXPECT_EQ(fault.line(), 3U);
    EXPECT_EQ(narrow(fault.what()).find(narrow(fault.message()) + " ["), 0U);
  }
}

TEST(Origins, WhatIsLoadedTellsWhereItWasDeclared) {
  LoadSession session;
  const std::string elementPlace = write(
      session.folder,
      {{"d.xsd", "<?xml version='1.0'?>" + SchemaBuilder().add("\n " + marked(element("A", 1, "t:Int32"))).text()}});
  EXPECT_EQ(session.loadDictionaryFile(session.folder.path("d.xsd")), "ok");
  EXPECT_EQ(narrow(session.dictionary.metaElementBegin()->second->origin().toString()), elementPlace);

  const std::string group1 = group("G", 1).text() + complexType("GType", "\n" + marked(property("t:A")));
  const std::string attributePlace = write(session.folder, {{"s.xsd", SchemaBuilder().add(group1).text()}});
  EXPECT_EQ(session.loadSchemeFile(session.folder.path("s.xsd")), "ok");
  const MetaMetadataSet& set = session.dictionary.metaMetadataSetBegin()->second;
  EXPECT_EQ(narrow(set.metaAttributes().at(0)->origin().toString()), attributePlace);
  EXPECT_EQ(narrow(set.origin().path()), session.folder.path("s.xsd"));
  EXPECT_EQ(set.origin().line(), 1U);

  // A copy of the properties is not the same declaration, and what a host makes has none.
  MetaMetadataSet made(set.key());
  made = static_cast<const MetaMetadata::PropertyMap&>(set);
  EXPECT_FALSE(made.origin().isKnown());
  EXPECT_EQ(narrow(made.origin().toString()), "");
}

}  // namespace
}  // namespace MXF::Tessel::Test
