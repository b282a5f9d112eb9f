// The schemas that come with the library: valid as XML Schema, and loaded to the same dictionary in both flavours.

#include "loader/support/Loading.h"

#include <MetaMetadata/PropertyKeys.h>
#include <XMLUtils/Initializer.h>
#include <XMLUtils/TextConversion.h>

#include <gtest/gtest.h>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include <filesystem>
#include <iterator>

namespace MXF::Tessel::Test {
namespace {

namespace PropertyKeys = MetaMetadata::PropertyKeys;

const std::filesystem::path schemas = TESSELMXF_SCHEMAS;

/// Every message of the parser, a line each.
class Messages final : public xercesc::ErrorHandler {
 public:
  std::string text;

  void warning(const xercesc::SAXParseException& e) override { add(e); }
  void error(const xercesc::SAXParseException& e) override { add(e); }
  void fatalError(const xercesc::SAXParseException& e) override { add(e); }
  void resetErrors() override {}

 private:
  void add(const xercesc::SAXParseException& e) {
    text += std::to_string(e.getLineNumber()) + ": " + narrow(XMLUtils::toWstring(e.getMessage())) + "\n";
  }
};

TEST(ShippedSchemas, AreValidGrammars) {
  XMLUtils::Initializer::instance();
  int files = 0;
  for (const char* flavour : {"registry", "urn"}) {
    for (const auto& file : std::filesystem::directory_iterator(schemas / flavour)) {
      Messages messages;
      xercesc::XercesDOMParser parser;
      parser.setErrorHandler(&messages);
      parser.setDoNamespaces(true);
      parser.setDoSchema(true);
      parser.setValidationSchemaFullChecking(true);
      EXPECT_NE(parser.loadGrammar(file.path().c_str(), xercesc::Grammar::SchemaGrammarType), nullptr) << file.path();
      EXPECT_EQ(messages.text, "") << file.path();
      ++files;
    }
  }
  EXPECT_EQ(files, 10);
}

/// Loads a flavour's schemas; only the options differ.
void loadShipped(LoadSession& session, const char* flavour, bool options) {
  const auto path = [&](const char* file) { return (schemas / flavour / file).string(); };
  session.loader.loadMultiplex(wide(path("multiplex.xsd")));
  session.loader.loadAbstractGroups(options);
  session.loader.loadMetaElementDocumentation(options);
  session.loader.loadMetaElementLengthDescription(options);
  ASSERT_EQ(session.loadDictionaryFile(path("dictionary.xsd")), "ok");
  ASSERT_EQ(session.loadSchemeFile(path("groups.xsd")), "ok");
  ASSERT_EQ(session.loadSchemeFile(path("descriptive.xsd")), "ok");
}

TEST(ShippedSchemas, LoadToTheSameDictionaryInBothFlavoursWithNothingUnresolved) {
  for (const bool options : {false, true}) {
    LoadSession registry;
    LoadSession urn;
    ASSERT_NO_FATAL_FAILURE(loadShipped(registry, "registry", options));
    ASSERT_NO_FATAL_FAILURE(loadShipped(urn, "urn", options));
    EXPECT_NE(registry.loader.getTargetNamespace(), urn.loader.getTargetNamespace());
    EXPECT_EQ(dump(registry.dictionary), dump(urn.dictionary));

    const MetaMetadata::Dictionary& dictionary = registry.dictionary;
    EXPECT_GE(std::distance(dictionary.metaElementBegin(), dictionary.metaElementEnd()), 150);
    EXPECT_GE(std::distance(dictionary.metaMetadataSetBegin(), dictionary.metaMetadataSetEnd()), 45);
    for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
      const auto& properties = entry->second->properties();
      const auto unresolved = properties.find(PropertyKeys::unresolvedSetReferences);
      if (unresolved == properties.end()) continue;
      EXPECT_EQ(narrow(unresolved->second), "") << narrow(entry->second->getProperty(PropertyKeys::xmlTagName));
    }
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
