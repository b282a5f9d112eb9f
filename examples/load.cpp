// Loads all schemas of a folder, with all that a loader leaves out unless it is asked for, and counts what came in.
#include <Exceptions/BaseException.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Utils/TextConversion.h>

#include <iostream>
#include <iterator>

using namespace MXF::Tessel;

int main(int argc, char* argv[]) try {
  const auto folder = Utils::stringToWstring(argc > 1 ? argv[1] : "schemas/registry");

  MetaMetadata::Loading::XSDDictionaryLoader2 loader;
  loader.loadMultiplex(folder + L"/multiplex.xsd");  // tells in which flavour the annotations are written
  loader.loadAbstractGroups(true);                   // bases that no file contains
  loader.loadMetaElementDocumentation(true);         // property "Documentation" of elements and sets
  loader.loadMetaElementLengthDescription(true);     // property "LengthDescription" of elements

  MetaMetadata::Dictionary dictionary;
  loader.loadDictionary(folder + L"/dictionary.xsd", dictionary);
  loader.loadScheme(folder + L"/groups.xsd", dictionary);
  loader.loadScheme(folder + L"/descriptive.xsd", dictionary);

  std::cout << "Annotations as for " << Utils::wstringToString(loader.getTargetNamespace().c_str()) << '\n'
            << std::distance(dictionary.metaElementBegin(), dictionary.metaElementEnd()) << " elements\n"
            << std::distance(dictionary.metaMetadataSetBegin(), dictionary.metaMetadataSetEnd()) << " sets\n"
            << dictionary.localTags().size() << " local tags\n";
} catch (const Exceptions::BaseException& failure) {
  std::cerr << Utils::wstringToString(failure.what()) << '\n';
  return 1;
} catch (...) {
  std::cerr << "The XML libraries failed.\n";
  return 1;
}
