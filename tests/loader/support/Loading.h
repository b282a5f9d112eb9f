#pragma once

#include "DictionaryDump.h"
#include "SchemaBuilder.h"
#include "TemporaryFolder.h"

#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>

#include <functional>
#include <string>

namespace MXF::Tessel::Test {

/// "ok", or the exception that the action throws: "Class (code): message", the code only for the library's own classes.
/// The class is the most derived one that is known, unqualified.
std::string outcomeOf(const std::function<void()>& action);

/// The outcome of a schema that lacks something.
inline std::string dataMissing(const std::string& message) {
  return "SchemeDataMissingException (46): " + message;
}
inline const std::string noTarget = dataMissing("Scheme document without target namespace URI.");

/// A loader, the dictionary it fills, and a folder for its schemas. The loader is fresh, or has read a multiplex schema
/// of the registry flavour.
class LoadSession {
 public:
  explicit LoadSession(SchemaFlavour flavour = SchemaFlavour::Urn);

  /// Writes the schema (to "dictionary.xsd" or "scheme.xsd" unless a file is named) and loads it.
  /// @return outcomeOf() the load. A failure that changes the dictionary is followed by a line "CHANGED" and its dump.
  std::string loadDictionary(const SchemaBuilder& schema, const std::string& file = "dictionary.xsd");
  std::string loadScheme(const SchemaBuilder& schema, const std::string& file = "scheme.xsd");
  /// The same for a text that is there already, by its path.
  std::string loadDictionaryFile(const std::string& path);
  std::string loadSchemeFile(const std::string& path);

  /// The dictionary after a load that succeeds, the outcome of one that fails.
  std::string dictionaryAfter(const SchemaBuilder& schema, Properties properties = Properties::Shown);

  TemporaryFolder folder;
  MetaMetadata::Dictionary dictionary;
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;

 private:
  std::string outcomeOfLoad(const std::function<void()>& load) const;
};

}  // namespace MXF::Tessel::Test
