// Loads the schemas of a folder and prints every distinguished value: its set, its element, and the value, read back
// through a visitor.
#include <Exceptions/BaseException.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <MetaMetadata/PropertyKeys.h>
#include <Types/Types.h>
#include <Utils/TextConversion.h>

#include <iostream>

using namespace MXF::Tessel;

namespace {

/// Writes a value to the standard output. A value calls the overload of its own class.
class PrintValue : public Types::Visitors::Visitor {
 public:
  void visit(const Types::Array& value) override { printItems(value); }
  void visit(const Types::Batch& value) override { printItems(value); }
  void visit(const Types::Boolean& value) override { std::cout << (value.value() ? "true" : "false"); }
  void visit(const Types::Int8& value) override { std::cout << int{value.value()}; }
  void visit(const Types::Int16& value) override { std::cout << value.value(); }
  void visit(const Types::Int32& value) override { std::cout << value.value(); }
  void visit(const Types::Int64& value) override { std::cout << value.value(); }
  void visit(const Types::UInt8& value) override { std::cout << int{value.value()}; }
  void visit(const Types::UInt16& value) override { std::cout << value.value(); }
  void visit(const Types::UInt32& value) override { std::cout << value.value(); }
  void visit(const Types::UInt64& value) override { std::cout << value.value(); }
  void visit(const Types::Length& value) override { std::cout << value.value() << " edit units"; }
  void visit(const Types::Position& value) override { std::cout << "at edit unit " << value.value(); }
  void visit(const Types::ISO7String& value) override { std::cout << value.value(); }
  void visit(const Types::UTF16& value) override { printText(Templates::WideString(1, value.value())); }
  void visit(const Types::UTF16String& value) override { printText(value.value()); }
  void visit(const Types::Rational& value) override { std::cout << value.numerator() << '/' << value.denominator(); }
  void visit(const Types::RGBALayout& value) override {
    for (unsigned int i = 0; i < Types::RGBALayout::componentCount; ++i) {
      const auto component = value.get(i);
      std::cout << (i == 0 ? "" : ", ") << int{component.code} << ':' << int{component.depth};
    }
  }
  void visit(const Types::LocalTag& value) override { printBytes(value); }
  void visit(const Types::UniversalLabel& value) override { printBytes(value); }
  void visit(const Types::UUID& value) override { printBytes(value); }
  void visit(const Types::UMID32& value) override { printBytes(value); }
  void visit(const Types::UMID64& value) override { printBytes(value); }

 private:
  void printItems(const Types::Collection& items) {
    std::cout << "[ ";
    for (std::size_t i = 0; i < items.size(); ++i) {
      items.at(i).accept(*this);
      std::cout << ' ';
    }
    std::cout << ']';
  }

  static void printText(const Templates::WideString& text) { std::cout << Utils::wstringToString(text.c_str()); }

  template <class Identifier>
  static void printBytes(const Identifier& value) {
    printText(value.toString(Types::StringRepresentationEncodingType::DottedHex));
  }
};

void printDistinguishedValues(const MetaMetadata::MetaMetadataSet& set) {
  using MetaMetadata::PropertyKeys::name;
  for (const auto& attribute : set.metaAttributes()) {
    const Types::BaseType* value = attribute->distinguishedValue();
    if (value == nullptr) continue;
    std::cout << Utils::wstringToString(set.getProperty(name)) << ", "
              << Utils::wstringToString(attribute->metaElement().getProperty(name)) << ": ";
    PrintValue print;
    value->accept(print);
    std::cout << '\n';
  }
}

}  // namespace

int main(int argc, char* argv[]) try {
  const auto folder = Utils::stringToWstring(argc > 1 ? argv[1] : "schemas/registry");
  MetaMetadata::Loading::XSDDictionaryLoader2 loader;
  MetaMetadata::Dictionary dictionary;
  loader.loadMultiplex(folder + L"/multiplex.xsd");
  loader.loadDictionary(folder + L"/dictionary.xsd", dictionary);
  for (const wchar_t* scheme : {L"/groups.xsd", L"/descriptive.xsd"}) loader.loadScheme(folder + scheme, dictionary);
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    printDistinguishedValues(entry->second);
  }
} catch (const Exceptions::BaseException& failure) {
  std::cerr << Utils::wstringToString(failure.message()) << '\n';
  return 1;
} catch (...) {
  std::cerr << "The XML libraries failed.\n";
  return 1;
}
