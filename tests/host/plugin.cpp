// A host's plug-in that uses the loader: what UnloadingTest loads and unloads.

#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Utils/TextConversion.h>

#include <iterator>

using namespace MXF::Tessel;

/// Loads the schemas of a folder. @return the number of sets, or -1 after a failure.
extern "C" __attribute__((visibility("default"))) int loadSchemas(const char* folder) try {
  const Templates::WideString path = Utils::stringToWstring(folder);
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;
  MetaMetadata::Dictionary dictionary;
  loader.loadMultiplex(path + L"/multiplex.xsd");
  loader.loadDictionary(path + L"/dictionary.xsd", dictionary);
  loader.loadScheme(path + L"/groups.xsd", dictionary);
  return static_cast<int>(std::distance(dictionary.metaMetadataSetBegin(), dictionary.metaMetadataSetEnd()));
} catch (...) {
  return -1;
}
