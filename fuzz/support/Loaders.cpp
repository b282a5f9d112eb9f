#include "support/Loaders.h"

#include "support/Contract.h"
#include "support/Documents.h"

#include <loader/support/DictionaryDump.h>
#include <memory>

namespace MXF::Tessel::Fuzz {

using Test::SchemaBuilder;

namespace {

constexpr const char* registryMultiplex = "http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004";

std::unique_ptr<XSDDictionaryLoader2> makeLoader(SchemaFlavour flavour) {
  auto loader = std::make_unique<XSDDictionaryLoader2>();
  if (flavour == SchemaFlavour::RegistryUri) {
    loader->loadMultiplex(writeDocument("sound.xsd", SchemaBuilder().target(registryMultiplex).text()));
  }
  return loader;
}

std::string dumpOfSoundSchemas(XSDDictionaryLoader2& loader, SchemaFlavour flavour) {
  const SchemaBuilder elements =
      SchemaBuilder(flavour).add(Test::element("A", 1, "t:Int32")).add(Test::element("B", 2, "t:UTF16String"));
  const SchemaBuilder groups = SchemaBuilder(flavour)
                                   .add(Test::group("G", 1))
                                   .add(Test::complexType("GType", Test::property("t:A") + Test::property("t:B")));
  Dictionary dictionary;
  loader.loadDictionary(writeDocument("sound.xsd", elements.text()), dictionary);
  loader.loadScheme(writeDocument("sound.xsd", groups.text()), dictionary);
  // The prefix of a namespace is that of the first document that binds it, so that properties may differ.
  return Test::dump(dictionary, Test::Properties::LeftOut);
}

}  // namespace

SchemaFlavour flavourOf(std::string_view input) {
  const bool isRegistry = input.find("http://www.smpte-ra.org/schemas/434/") != std::string_view::npos;
  return isRegistry ? SchemaFlavour::RegistryUri : SchemaFlavour::Urn;
}

const XSDDictionaryLoader2& freshLoader(SchemaFlavour flavour) {
  static const auto urn = makeLoader(SchemaFlavour::Urn);
  static const auto registry = makeLoader(SchemaFlavour::RegistryUri);
  return flavour == SchemaFlavour::Urn ? *urn : *registry;
}

std::string setsOf(const Dictionary& dictionary) {
  Dictionary copy;
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    copy.addMetaMetadataSet(entry->first, entry->second);
  }
  for (const auto& [tag, label] : dictionary.localTags()) copy.addLocalTag(tag, label);
  return Test::dump(copy);
}

void requireUsable(XSDDictionaryLoader2& loader, SchemaFlavour flavour) {
  static const std::string expected = [] {
    XSDDictionaryLoader2 first;
    return dumpOfSoundSchemas(first, SchemaFlavour::Urn);
  }();
  require(dumpOfSoundSchemas(loader, flavour) == expected, "the loader stays usable");
}

}  // namespace MXF::Tessel::Fuzz
