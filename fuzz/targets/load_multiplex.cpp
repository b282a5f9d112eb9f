// loadMultiplex() of an input that is a multiplex schema.

#include "support/Contract.h"
#include "support/Documents.h"
#include "support/Loaders.h"

#include <Exceptions/Exceptions.h>

using namespace MXF::Tessel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = Fuzz::inputText(data, size);
  const Templates::WideString path = Fuzz::writeDocument("multiplex.xsd", input);
  Fuzz::XSDDictionaryLoader2 loader;
  const Templates::WideString urn = loader.getTargetNamespace();
  const bool isLoaded =
      Fuzz::succeeds<Exceptions::ParseError, Exceptions::InvalidValue>([&] { loader.loadMultiplex(path); });
  const bool isUrn = loader.getTargetNamespace() == urn;
  Fuzz::require(isLoaded || isUrn, "a multiplex load that fails keeps the flavour");
  if (Fuzz::nowAndThen(input)) {
    Fuzz::requireUsable(loader, isUrn ? Fuzz::SchemaFlavour::Urn : Fuzz::SchemaFlavour::RegistryUri);
  }
  return 0;
}
