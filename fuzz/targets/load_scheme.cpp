// loadScheme() of an input that is a scheme schema and up to two schemas, import.xsd and second.xsd, that it may import.
// The dictionary holds an element of every simple data type, A2 to A34 by its number, and collections and references.

#include "support/Contract.h"
#include "support/Documents.h"
#include "support/Loaders.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/NullMetaElementVisitor.h>
#include <Types/Identifiers.h>

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xqilla/exceptions/XQException.hpp>

#include <array>
#include <loader/support/TemporaryFolder.h>
#include <memory>
#include <string>

using namespace MXF::Tessel;

namespace {

using Types::Identifiers::Identifier;

/// Elements named by their numbers, each a letter and one that tells its type.
std::string elementsText(Fuzz::SchemaFlavour flavour) {
  constexpr int typeCount = static_cast<int>(Identifier::RGBALayout) + 1;
  Test::SchemaBuilder schema(flavour);
  int number = 0;
  for (int type = 0; type < typeCount; ++type) {
    const auto dataType = static_cast<Identifier>(type);
    if (isCollectionKind(dataType) || dataType == Identifier::Unknown) continue;
    const std::string name = Test::narrow(identifierToString(dataType));
    schema.add(Test::element("A" + std::to_string(type), ++number, "t:" + name));
  }
  for (const char* item : {"Int32", "UTF16String", "UL", "RGBALayout"}) {
    const std::string type = Test::derived("t:Batch", Test::items(std::string("t:") + item));
    schema.add(Test::element(std::string("B") + item, ++number).add(type));
  }
  for (const char* kind : {"StrongRefHolder", "WeakRefHolder", "StrongRefBatch", "WeakRefArray"}) {
    const std::string type = Test::derived(std::string("t:") + kind, Test::references({"t:G", "t:H", "t:Other"}));
    schema.add(Test::element(std::string("R") + kind, ++number).add(type));
  }
  return schema.text();
}

/// Loads the elements of elementsText().
std::unique_ptr<Fuzz::Dictionary> loadElements(Fuzz::SchemaFlavour flavour) {
  Fuzz::XSDDictionaryLoader2 loader;
  loader = Fuzz::freshLoader(flavour);
  auto dictionary = std::make_unique<Fuzz::Dictionary>();
  loader.loadDictionary(Fuzz::writeDocument("elements.xsd", elementsText(flavour)), *dictionary);
  return dictionary;
}

/// Adds a copy of each element that it visits to a dictionary.
class ElementCopier final : public MetaMetadata::Visitors::NullMetaElementVisitor {
 public:
  explicit ElementCopier(Fuzz::Dictionary& target) : target_(target) {}

  using NullMetaElementVisitor::visit;
  void visit(const MetaMetadata::MetaSimpleElement& element) override { copy(element); }
  void visit(const MetaMetadata::MetaCollection& element) override { copy(element); }
  void visit(const MetaMetadata::MetaReferenceElement& element) override { copy(element); }
  void visit(const MetaMetadata::MetaReferenceCollection& element) override { copy(element); }

 private:
  template <class Element>
  void copy(const Element& element) {
    target_.addMetaElement(element.universalLabel(), std::make_unique<Element>(element));
  }

  Fuzz::Dictionary& target_;
};

/// Adds the elements of elementsText(), as copies: loading them would take most of the time of an input.
void addElements(Fuzz::SchemaFlavour flavour, Fuzz::Dictionary& dictionary) {
  static const auto urn = loadElements(Fuzz::SchemaFlavour::Urn);
  static const auto registry = loadElements(Fuzz::SchemaFlavour::RegistryUri);
  const Fuzz::Dictionary& elements = flavour == Fuzz::SchemaFlavour::Urn ? *urn : *registry;
  ElementCopier copier(dictionary);
  for (auto entry = elements.metaElementBegin(); entry != elements.metaElementEnd(); ++entry) {
    static_cast<const MetaMetadata::MetaElement&>(*entry->second).accept(copier);
  }
}

/// Writes the documents of an input; those that it does not have are not there. @return the scheme's path.
Templates::WideString writeSchemas(std::string_view input) {
  constexpr std::array files = {"scheme.xsd", "import.xsd", "second.xsd"};
  const auto documents = Fuzz::splitDocuments(input);
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (i < documents.size()) {
      Fuzz::writeDocument(files[i], documents[i]);
    } else {
      Fuzz::removeDocument(files[i]);
    }
  }
  return Fuzz::documentPath(files.front());
}

template <class Load>
bool loads(const Load& load) {
  using namespace Exceptions;
  return Fuzz::succeeds<IOError, ParseError, SchemeDataMissingException, InvalidULDesignator,
                        MetaMetadataSetAlreadyLoaded, InvalidMetaElementDeclaration, NotFound, InvalidValue,
                        XQException, xercesc::DOMException, xercesc::SAXException, xercesc::XMLException>(load);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = Fuzz::inputText(data, size);
  const Fuzz::SchemaFlavour flavour = Fuzz::flavourOf(input);
  Fuzz::XSDDictionaryLoader2 loader;
  loader = Fuzz::freshLoader(flavour);
  loader.loadMetaElementDocumentation(true);
  loader.loadAbstractGroups(input.size() % 2 == 1);

  Fuzz::Dictionary dictionary;
  addElements(flavour, dictionary);
  const Templates::WideString path = writeSchemas(input);
  const auto load = [&] { loader.loadScheme(path, dictionary); };
  const bool isLoaded = loads(load);
  const std::string sets = Fuzz::setsOf(dictionary);
  Fuzz::require(isLoaded || sets.empty(), "a scheme load that fails adds no set and no local tag");
  if (!Fuzz::nowAndThen(input)) return 0;

  // What failed may be read now, since the imports are there.
  const bool isLoadedAgain = loads(load);
  Fuzz::require(!isLoadedAgain || sets.empty(), "a set is not loaded twice");
  Fuzz::require(isLoadedAgain || Fuzz::setsOf(dictionary) == sets, "a repeated load that fails changes nothing");
  Fuzz::requireUsable(loader, flavour);
  return 0;
}
