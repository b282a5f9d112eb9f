// Looks up one set and prints what the dictionary tells of it and of its elements.
#include <Exceptions/BaseException.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>
#include <Utils/TextConversion.h>

#include <iostream>

using namespace MXF::Tessel;
using MetaMetadata::Dictionary;
using Types::StringRepresentationEncodingType;
namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

Templates::NarrowString nameOf(const MetaMetadata::PropertyMap& declared) {
  return Utils::wstringToString(declared.getProperty(PropertyKeys::name));
}

void printAttribute(const MetaMetadata::MetaAttribute& attribute) {
  const MetaMetadata::MetaElement& element = attribute.metaElement();
  const auto& statuses = MetaMetadata::AttributeRequiredStatus::instance();
  std::cout << "  " << nameOf(element) << ": "
            << Utils::wstringToString(Types::Identifiers::identifierToString(element.dataType())) << ", "
            << Utils::wstringToString(statuses.toString(attribute.requiredStatus()));
  if (const Types::LocalTag* tag = attribute.localTag()) {
    const auto text = tag->toString(StringRepresentationEncodingType::DottedHex);
    std::cout << ", tag " << Utils::wstringToString(text.c_str());
  }
  std::cout << '\n';
}

/// An element is of one of four classes. A visitor asks which; this one asks for collections of references.
void printReferredSets(const MetaMetadata::MetaElement& element, const Dictionary& dictionary) {
  MetaMetadata::Visitors::GetMetaElementVisitor<MetaMetadata::MetaReferenceCollection> question;
  element.accept(question);
  if (question.get() == nullptr) return;
  for (const KLV::Key& key : question.get()->allowedMetadataSets()) {
    const MetaMetadata::MetaMetadataSet* set = dictionary.findMetaMetadataSet(key);
    std::cout << "    of " << (set != nullptr ? nameOf(*set) : "a set that is not loaded") << '\n';
  }
}

void printSet(const MetaMetadata::MetaMetadataSet& set, const Dictionary& dictionary) {
  std::cout << nameOf(set) << ", declared at " << Utils::wstringToString(set.origin().toString().c_str()) << '\n';
  for (const auto& attribute : set.metaAttributes()) {
    printAttribute(*attribute);
    printReferredSets(attribute->metaElement(), dictionary);
  }
}

}  // namespace

int main(int argc, char* argv[]) try {
  const auto folder = Utils::stringToWstring(argc > 1 ? argv[1] : "schemas/registry");
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;
  Dictionary dictionary;
  loader.loadMultiplex(folder + L"/multiplex.xsd");
  loader.loadDictionary(folder + L"/dictionary.xsd", dictionary);
  loader.loadScheme(folder + L"/groups.xsd", dictionary);

  const KLV::Key contentStorage(L"06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.18.00",
                                StringRepresentationEncodingType::DottedHex);
  if (const MetaMetadata::MetaMetadataSet* set = dictionary.findMetaMetadataSet(contentStorage)) {
    printSet(*set, dictionary);
  }
} catch (const Exceptions::BaseException& failure) {
  std::cerr << Utils::wstringToString(failure.what()) << '\n';
  return 1;
} catch (...) {
  std::cerr << "The XML libraries failed.\n";
  return 1;
}
