#include "HostileLoad.h"

#include "loader/support/Loading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace MXF::Tessel::Test {

namespace {

using MetaMetadata::Dictionary;

SchemaBuilder elementsForSchemes() {
  return SchemaBuilder()
      .add(element("A", 1, "Int32"))
      .add(element("B", 2, "Int32"))
      .add(element("C", 3, "Int32"))
      .add(element("S", 4, "UTF16String"))
      .add(element("N", 5).add(derived("Array", items("Int8"))));
}

std::string counted(const Dictionary& dictionary) {
  std::size_t sets = 0;
  std::size_t attributes = 0;
  for (auto set = dictionary.metaMetadataSetBegin(); set != dictionary.metaMetadataSetEnd(); ++set) {
    ++sets;
    attributes += set->second.metaAttributes().size();
  }
  const auto elements = std::distance(dictionary.metaElementBegin(), dictionary.metaElementEnd());
  return std::to_string(elements) + " elements, " + std::to_string(sets) + " sets, " + std::to_string(attributes) +
         " attributes";
}

bool isLarge(const Dictionary& dictionary) {
  constexpr std::size_t many = 20;
  std::size_t entries = 0;
  for (auto element = dictionary.metaElementBegin(); element != dictionary.metaElementEnd(); ++element) ++entries;
  for (auto set = dictionary.metaMetadataSetBegin(); set != dictionary.metaMetadataSetEnd(); ++set) {
    entries += 1 + set->second.metaAttributes().size();
  }
  return entries > many;
}

std::string setsOf(const Dictionary& dictionary) {
  std::istringstream lines(dump(dictionary, Properties::LeftOut));
  std::string text;
  for (std::string line; std::getline(lines, line);) text += line.front() == 'L' ? "" : line + "\n";
  return text;
}

std::string described(Load load, const Dictionary& dictionary) {
  if (isLarge(dictionary)) return counted(dictionary);
  return load == Load::Scheme ? setsOf(dictionary) : dump(dictionary);
}

std::string runsCounted(const std::string& text) {
  constexpr std::size_t longest = 30;
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_not_of(text[at], at), text.size());
    const std::size_t length = end - at;
    result += length > longest ? text[at] + ("{" + std::to_string(length) + "}") : text.substr(at, length);
    at = end;
  }
  return result;
}

std::string outcomeOfLoad(LoadSession& session, Load load, const std::string& path) {
  if (load == Load::Multiplex) return outcomeOf([&] { session.loader.loadMultiplex(wide(path)); });
  if (load == Load::Scheme) {
    const auto elements = std::filesystem::path(path).parent_path() / "elements.xsd";
    const bool areOwn = std::filesystem::exists(elements);
    const std::string outcome =
        areOwn ? session.loadDictionaryFile(elements) : session.loadDictionary(elementsForSchemes());
    if (outcome != "ok") return "elements: " + outcome;
  }
  std::string outcome = load == Load::Dictionary ? session.loadDictionaryFile(path) : session.loadSchemeFile(path);
  return outcome == "ok" ? described(load, session.dictionary) : outcome;
}

/// What the loader makes of a good dictionary schema, and of a good scheme with an import.
std::string goodDictionaryOf(LoadSession& session) {
  Dictionary dictionary;
  const std::string elements =
      session.folder.write("good/elements.xsd", SchemaBuilder().target("urn:good").add(element("A", 1, "Int8")).text());
  session.folder.write("good/base.xsd", SchemaBuilder()
                                            .target("urn:good:base")
                                            .add(complexType("Base", property("g:A")))
                                            .set("xmlns:g", "urn:good")
                                            .text());
  const SchemaBuilder groups = SchemaBuilder()
                                   .target("urn:good")
                                   .set("xmlns:b", "urn:good:base")
                                   .add(import("urn:good:base", "base.xsd"))
                                   .add(complexType("GType", property("t:A", "Req"), "b:Base"))
                                   .add(group("G", 1));
  const std::string scheme = session.folder.write("good/groups.xsd", groups.text());
  const std::string outcome = outcomeOf([&] {
    session.loader.loadDictionary(wide(elements), dictionary);
    session.loader.loadScheme(wide(scheme), dictionary);
  });
  return outcome == "ok" ? dump(dictionary) : outcome;
}

const char* const goodDictionary =
    "L01 MetaSimpleElement 8 XMLDefaultPrefix=t; XMLNamespaceURI=urn:good; XMLTagName=A; name=A name\n"
    "K01 XMLDefaultPrefix=t; XMLNamespaceURI=urn:good; XMLTagName=G; abstract=false; baseGroupUL=; name=G name\n"
    "  L01 Opt MetadataElementRequiredStatus=Opt; RequiresSemanticsValidation=; SchemaIndex=0; "
    "UniversalLabel=06.0E.2B.34.01.01.01.01.00.00.00.00.00.00.00.01; XMLNamespaceURI=urn:good:base\n"
    "  L01 Req MetadataElementRequiredStatus=Req; RequiresSemanticsValidation=; SchemaIndex=1; "
    "UniversalLabel=06.0E.2B.34.01.01.01.01.00.00.00.00.00.00.00.01; XMLNamespaceURI=urn:good\n";

std::string attempt(Load load, const std::string& path) {
  LoadSession session;
  std::string outcome = outcomeOfLoad(session, load, path);
  const std::string after = goodDictionaryOf(session);
  return after == goodDictionary ? outcome : outcome + "\nAND THEN\n" + after;
}

}  // namespace

const std::string elementA =
    "L01 MetaSimpleElement 6 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=A; name=A name\n";

std::string HostileFiles::outcome(Load load, const std::string& file, const Budget& budget) const {
  const std::string text = inSandbox(budget, [&] { return runsCounted(attempt(load, path(file))); });
  return replaced(text, path(""), "F/");
}

void expectOutcome(const std::string& what, Load load, const std::string& text, const std::string& expected,
                   const Budget& budget) {
  HostileFiles files;
  files.write("hostile.xsd", text);
  EXPECT_EQ(files.outcome(load, "hostile.xsd", budget), expected) << what;
}

std::string limitExceeded(const std::string& place, const std::string& limit) {
  return "ParseError (33): F/hostile.xsd:" + place + ": Limit exceeded: more than " + limit;
}

std::string loadLimitExceeded(const std::string& limit) {
  return "InvalidValue (16): Limit exceeded: more than " + limit + " in a load";
}

}  // namespace MXF::Tessel::Test
