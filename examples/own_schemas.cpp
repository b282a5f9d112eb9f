// Loads the schemas of the folder slate and prints the sets that they declare, each with its elements.
#include <Exceptions/BaseException.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <MetaMetadata/PropertyKeys.h>
#include <Utils/TextConversion.h>

#include <iostream>

using namespace MXF::Tessel;

int main(int argc, char* argv[]) try {
  const auto folder = Utils::stringToWstring(argc > 1 ? argv[1] : "examples/slate");
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;  // of the URN flavour, like the schemas
  MetaMetadata::Dictionary dictionary;
  loader.loadDictionary(folder + L"/dictionary.xsd", dictionary);
  loader.loadScheme(folder + L"/groups.xsd", dictionary);

  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    std::cout << Utils::wstringToString(entry->second.getProperty(MetaMetadata::PropertyKeys::name)) << '\n';
    for (const auto& attribute : entry->second.metaAttributes()) {
      const MetaMetadata::MetaElement& element = attribute->metaElement();
      std::cout << "  " << Utils::wstringToString(element.getProperty(MetaMetadata::PropertyKeys::name)) << ": "
                << Utils::wstringToString(Types::Identifiers::identifierToString(element.dataType())) << '\n';
    }
  }
} catch (const Exceptions::BaseException& failure) {
  std::cerr << Utils::wstringToString(failure.what()) << '\n';
  return 1;
} catch (...) {
  std::cerr << "The XML libraries failed.\n";
  return 1;
}
