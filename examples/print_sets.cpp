// Loads the schemas of a folder and prints every set with the number of its attributes.
#include <Exceptions/BaseException.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <MetaMetadata/PropertyKeys.h>
#include <Utils/TextConversion.h>

#include <iostream>

using namespace MXF::Tessel;

int main(int argc, char* argv[]) try {
  const auto folder = Utils::stringToWstring(argc > 1 ? argv[1] : "schemas/registry");
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;
  MetaMetadata::Dictionary dictionary;
  loader.loadMultiplex(folder + L"/multiplex.xsd");
  loader.loadDictionary(folder + L"/dictionary.xsd", dictionary);
  loader.loadScheme(folder + L"/groups.xsd", dictionary);
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    const MetaMetadata::MetaMetadataSet& set = entry->second;
    const wchar_t* name = set.getProperty(MetaMetadata::PropertyKeys::name);
    std::cout << Utils::wstringToString(name) << ": " << set.metaAttributes().size() << " attributes\n";
  }
} catch (const Exceptions::BaseException& failure) {
  std::cerr << Utils::wstringToString(failure.message()) << '\n';
  return 1;
} catch (...) {
  std::cerr << "The XML libraries failed.\n";
  return 1;
}
