#include "DictionaryDump.h"

#include "SchemaBuilder.h"
#include "TemporaryFolder.h"

#include <MetaMetadata/AttributeRequiredStatus.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/NullMetaElementVisitor.h>
#include <Types/Types.h>

namespace MXF::Tessel::Test {

namespace {

using MetaMetadata::MetaElement;
using MetaMetadata::PropertyMap;

constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;

template <class Identifier>
std::string shortText(const Identifier& identifier) {
  const std::string text = narrow(identifier.toString(textForm));
  static const std::string labelStart = label(0).substr(0, 45);
  static const std::string keyStart = key(0).substr(0, 42);
  if (text.substr(0, labelStart.size()) == labelStart) return "L" + text.substr(labelStart.size());
  const bool isKey = text.substr(0, keyStart.size()) == keyStart && text.substr(44) == ".00";
  return isKey ? "K" + text.substr(keyStart.size(), 2) : text;
}

template <class Number>
std::string numberText(Number number) {
  return std::to_string(static_cast<int>(number));
}

class ValueText final : public Types::Visitors::Visitor {
 public:
  std::string text;

  void visit(const Types::Array& value) override { setItems("Array", value); }
  void visit(const Types::Batch& value) override { setItems("Batch", value); }
  void visit(const Types::Boolean& value) override { text = value.value() ? "Boolean true" : "Boolean false"; }
  void visit(const Types::Int8& value) override { setNumber("Int8", value.value()); }
  void visit(const Types::Int16& value) override { setNumber("Int16", value.value()); }
  void visit(const Types::Int32& value) override { setNumber("Int32", value.value()); }
  void visit(const Types::Int64& value) override { setNumber("Int64", value.value()); }
  void visit(const Types::UInt8& value) override { setNumber("UInt8", value.value()); }
  void visit(const Types::UInt16& value) override { setNumber("UInt16", value.value()); }
  void visit(const Types::UInt32& value) override { setNumber("UInt32", value.value()); }
  void visit(const Types::UInt64& value) override { setNumber("UInt64", value.value()); }
  void visit(const Types::Length& value) override { setNumber("Length", value.value()); }
  void visit(const Types::Position& value) override { setNumber("Position", value.value()); }
  void visit(const Types::ISO7String& value) override { text = std::string("ISO7String ") + value.value(); }
  void visit(const Types::UTF16& value) override { setNumber("UTF16", static_cast<long>(value.value())); }
  void visit(const Types::UTF16String& value) override { text = "UTF16String " + narrow(value.value()); }
  void visit(const Types::Rational& value) override {
    text = "Rational " + std::to_string(value.numerator()) + "/" + std::to_string(value.denominator());
  }
  void visit(const Types::RGBALayout& value) override {
    text = "RGBALayout";
    for (unsigned int i = 0; i < Types::RGBALayout::componentCount; ++i) {
      text += " " + numberText(value.get(i).code) + ":" + numberText(value.get(i).depth);
    }
  }
  void visit(const Types::LocalTag& value) override { setIdentifier("LocalTag", value); }
  void visit(const Types::UniversalLabel& value) override { setIdentifier("UniversalLabel", value); }
  void visit(const Types::UUID& value) override { setIdentifier("UUID", value); }
  void visit(const Types::UMID32& value) override { setIdentifier("UMID32", value); }
  void visit(const Types::UMID64& value) override { setIdentifier("UMID64", value); }

 private:
  template <class Number>
  void setNumber(const char* type, Number number) {
    text = std::string(type) + " " + std::to_string(number);
  }
  template <class Identifier>
  void setIdentifier(const char* type, const Identifier& value) {
    text = std::string(type) + " " + shortText(value);
  }
  void setItems(const char* type, const Types::Collection& items) {
    text = std::string(type) + " of " + std::to_string(items.elementSize()) + " bytes {";
    for (std::size_t i = 0; i < items.size(); ++i) text += (i == 0 ? "" : ", ") + dump(items.at(i));
    text += "}";
  }
};

/// Class, types and allowed sets.
class ElementText final : public MetaMetadata::Visitors::MetaElementVisitor {
 public:
  std::string text;

  void visit(const MetaMetadata::MetaSimpleElement& element) override { start("MetaSimpleElement", element); }
  void visit(const MetaMetadata::MetaCollection& element) override {
    start("MetaCollection", element);
    visit(static_cast<const MetaMetadata::MetaCollectionElement&>(element));
  }
  void visit(const MetaMetadata::MetaReferenceElement& element) override {
    start("MetaReferenceElement", element);
    visit(static_cast<const MetaMetadata::MetaReferenceHolder&>(element));
  }
  void visit(const MetaMetadata::MetaReferenceCollection& element) override {
    start("MetaReferenceCollection", element);
    visit(static_cast<const MetaMetadata::MetaCollectionElement&>(element));
    visit(static_cast<const MetaMetadata::MetaReferenceHolder&>(element));
  }
  void visit(const MetaMetadata::MetaCollectionElement& element) override {
    text += " " + numberText(element.dataSubType());
  }
  void visit(const MetaMetadata::MetaReferenceHolder& facet) override {
    std::string keys;
    for (const KLV::Key& allowed : facet.allowedMetadataSets()) keys += (keys.empty() ? "" : " ") + shortText(allowed);
    text += " [" + keys + "]";
  }
  void visit(const MetaMetadata::MetaValueHolder& /*facet*/) override {}

 private:
  void start(const char* className, const MetaElement& element) {
    text = std::string(className) + " " + numberText(element.dataType());
  }
};

/// With a blank before it, or empty.
std::string propertiesText(const PropertyMap& map, Properties properties) {
  if (properties == Properties::LeftOut) return {};
  std::string text;
  for (const auto& [name, value] : map.properties())
    text += (text.empty() ? " " : "; ") + narrow(name) + "=" + narrow(value);
  return text;
}

std::string attributeLine(const MetaMetadata::MetaAttribute& attribute, Properties properties) {
  const auto& words = MetaMetadata::AttributeRequiredStatus::instance();
  std::string line = "  " + shortText(attribute.metaElement().universalLabel()) + " " +
                     narrow(words.toString(attribute.requiredStatus()));
  if (attribute.localTag() != nullptr) line += " " + shortText(*attribute.localTag());
  if (attribute.distinguishedValue() != nullptr) line += " " + dump(*attribute.distinguishedValue());
  return line + propertiesText(attribute, properties) + "\n";
}

}  // namespace

std::string dump(const MetaMetadata::Dictionary& dictionary, Properties properties) {
  std::string lines;
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    ElementText element;
    entry->second->accept(element);
    lines += shortText(entry->first) + " " + element.text + propertiesText(*entry->second, properties) + "\n";
  }
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    lines += shortText(entry->first) + propertiesText(entry->second, properties) + "\n";
    for (const auto& attribute : entry->second.metaAttributes()) lines += attributeLine(*attribute, properties);
  }
  for (const auto& [tag, element] : dictionary.localTags()) lines += shortText(tag) + " " + shortText(element) + "\n";
  return lines;
}

std::string dump(const Types::BaseType& value) {
  ValueText visitor;
  value.accept(visitor);
  return visitor.text;
}

}  // namespace MXF::Tessel::Test
