#include "text/ValueText.h"

#include "json/JsonText.h"
#include "text/IdentifierForm.h"
#include "text/Unicode.h"

#include <Types/Types.h>
#include <Utils/TextConversion.h>

#include <string>
#include <utility>

namespace MXF::Tessel::Tool {

namespace {

std::u32string quotedValue(const Templates::WideString& text) {
  return printable(quoted(text));
}

std::u32string componentText(Types::RGBALayout::RGBAComponent component) {
  const bool isLetter = component.code > 0x20 && component.code < 0x7F;
  const std::u32string code = isLetter ? std::u32string(1, component.code) : decimal(component.code);
  return code + U' ' + decimal(component.depth);
}

class ValueToText final : public Types::Visitors::Visitor {
 public:
  std::u32string take() { return std::move(text_); }

  void visit(const Types::Array& value) override { setItems(value); }
  void visit(const Types::Batch& value) override { setItems(value); }
  void visit(const Types::Boolean& value) override { text_ = value.value() ? U"true" : U"false"; }
  void visit(const Types::Int8& value) override { setNumber(value.value()); }
  void visit(const Types::Int16& value) override { setNumber(value.value()); }
  void visit(const Types::Int32& value) override { setNumber(value.value()); }
  void visit(const Types::Int64& value) override { setNumber(value.value()); }
  void visit(const Types::UInt8& value) override { setNumber(value.value()); }
  void visit(const Types::UInt16& value) override { setNumber(value.value()); }
  void visit(const Types::UInt32& value) override { setNumber(value.value()); }
  void visit(const Types::UInt64& value) override { setNumber(value.value()); }
  void visit(const Types::Length& value) override { setNumber(value.value()); }
  void visit(const Types::Position& value) override { setNumber(value.value()); }
  void visit(const Types::ISO7String& value) override { text_ = quotedValue(Utils::stringToWstring(value.value())); }
  void visit(const Types::UTF16& value) override { text_ = quotedValue(Templates::WideString(1, value.value())); }
  void visit(const Types::UTF16String& value) override { text_ = quotedValue(value.value()); }
  void visit(const Types::Rational& value) override {
    setNumber(value.numerator());
    text_ += U'/' + fromAscii(std::to_string(value.denominator()));
  }
  void visit(const Types::RGBALayout& value) override {
    for (unsigned int i = 0; i < Types::RGBALayout::componentCount; ++i) addItem(componentText(value.get(i)));
    endItems();
  }
  void visit(const Types::LocalTag& value) override { setIdentifier(value); }
  void visit(const Types::UniversalLabel& value) override { setIdentifier(value); }
  void visit(const Types::UUID& value) override { setIdentifier(value); }
  void visit(const Types::UMID32& value) override { setIdentifier(value); }
  void visit(const Types::UMID64& value) override { setIdentifier(value); }

 private:
  template <class Number>
  void setNumber(Number number) {
    text_ = fromAscii(std::to_string(number));
  }

  template <class Identifier>
  void setIdentifier(const Identifier& identifier) {
    text_ = printable(identifier.toString(textForm));
  }

  void setItems(const Types::Collection& collection) {
    for (std::size_t i = 0; i < collection.size(); ++i) addItem(valueText(collection.at(i)));
    endItems();
  }

  void addItem(const std::u32string& item) { text_ += (text_.empty() ? U"{" : U", ") + item; }
  void endItems() { text_ = (text_.empty() ? U"{" : text_) + U'}'; }

  std::u32string text_;
};

}  // namespace

std::u32string valueText(const Types::BaseType& value) {
  ValueToText visitor;
  value.accept(visitor);
  return visitor.take();
}

}  // namespace MXF::Tessel::Tool
