// loadDictionary() of an input that is a dictionary schema.

#include "support/Contract.h"
#include "support/Documents.h"
#include "support/Loaders.h"

#include <Exceptions/Exceptions.h>

#include <loader/support/DictionaryDump.h>

using namespace MXF::Tessel;

namespace {

template <class Load>
bool loads(const Load& load) {
  using namespace Exceptions;
  return Fuzz::succeeds<ParseError, InvalidMetaElementDeclaration, InvalidULDesignator, MetaElementAlreadyLoaded,
                        TypeNotSupportedException, SchemeDataMissingException>(load);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = Fuzz::inputText(data, size);
  const Fuzz::SchemaFlavour flavour = Fuzz::flavourOf(input);
  Fuzz::XSDDictionaryLoader2 loader;
  loader = Fuzz::freshLoader(flavour);
  loader.loadMetaElementDocumentation(true);
  loader.loadMetaElementLengthDescription(true);

  Fuzz::Dictionary dictionary;
  const Templates::WideString path = Fuzz::writeDocument("dictionary.xsd", input);
  const auto load = [&] { loader.loadDictionary(path, dictionary); };
  const bool isLoaded = loads(load);
  const std::string dump = Test::dump(dictionary);
  Fuzz::require(isLoaded || dump.empty(), "a dictionary load that fails adds nothing");
  if (!Fuzz::nowAndThen(input)) return 0;

  const bool isRefused = !loads(load);
  Fuzz::require(isRefused || dump.empty(), "an element is not loaded twice");
  Fuzz::require(Test::dump(dictionary) == dump, "a repeated load changes nothing");
  Fuzz::requireUsable(loader, flavour);
  return 0;
}
