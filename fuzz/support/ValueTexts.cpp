// Values as texts. Entry point: textOf(); all else is local.

#include "support/ValueTexts.h"

#include <Types/Types.h>
#include <Utils/TextConversion.h>

#include <string>

namespace MXF::Tessel::Fuzz {

using Templates::WideString;

namespace {

constexpr std::size_t shortestList = 4;  // of those that are read as having items

template <class Number>
WideString decimal(Number number) {
  const std::wstring digits = std::to_wstring(number);
  return {digits.begin(), digits.end()};
}

class TextForm final : public Types::Visitors::Visitor {
 public:
  std::optional<WideString> text;

  void visit(const Types::Array& value) override { setItems(value); }
  void visit(const Types::Batch& value) override { setItems(value); }
  void visit(const Types::Boolean& value) override { text = value.value() ? L"1" : L"0"; }
  void visit(const Types::Int8& value) override { text = decimal(value.value()); }
  void visit(const Types::Int16& value) override { text = decimal(value.value()); }
  void visit(const Types::Int32& value) override { text = decimal(value.value()); }
  void visit(const Types::Int64& value) override { text = decimal(value.value()); }
  void visit(const Types::UInt8& value) override { text = decimal(value.value()); }
  void visit(const Types::UInt16& value) override { text = decimal(value.value()); }
  void visit(const Types::UInt32& value) override { text = decimal(value.value()); }
  void visit(const Types::UInt64& value) override { text = decimal(value.value()); }
  void visit(const Types::Length& value) override { text = decimal(value.value()); }
  void visit(const Types::Position& value) override { text = decimal(value.value()); }
  void visit(const Types::ISO7String& value) override { text = Utils::stringToWstring(value.value()); }
  void visit(const Types::UTF16& value) override { text = WideString(value.value() == L'\0' ? 0 : 1, value.value()); }
  void visit(const Types::UTF16String& value) override { text = value.value(); }
  void visit(const Types::Rational& value) override {
    text = L"{" + decimal(value.numerator()) + L"," + decimal(value.denominator()) + L"}";
  }
  void visit(const Types::RGBALayout& value) override {
    text = L"{";
    for (unsigned int i = 0; i < Types::RGBALayout::componentCount; ++i) {
      const auto component = value.get(i);
      *text += (i == 0 ? L"{" : L",{") + decimal(component.code) + L"," + decimal(component.depth) + L"}";
    }
    *text += L"}";
  }
  void visit(const Types::LocalTag& value) override { setBytes(value); }
  void visit(const Types::UniversalLabel& value) override { setBytes(value); }
  void visit(const Types::UUID& value) override { setBytes(value); }
  void visit(const Types::UMID32& value) override { setBytes(value); }
  void visit(const Types::UMID64& value) override { setBytes(value); }

 private:
  template <class Identifier>
  void setBytes(const Identifier& value) {
    text = value.toString(Types::StringRepresentationEncodingType::DottedHex);
  }
  void setItems(const Types::Collection& items) {
    WideString list = L"{";
    for (std::size_t i = 0; i < items.size(); ++i) {
      const auto item = textOf(items.at(i));
      if (!item || item->find(L',') != WideString::npos) return;
      list += *item + L",";  // also after the last one, which may be empty
    }
    list += L"}";
    if (items.size() == 0 || list.size() >= shortestList) text = list;
  }
};

}  // namespace

std::optional<WideString> textOf(const Types::BaseType& value) {
  TextForm form;
  value.accept(form);
  return form.text;
}

}  // namespace MXF::Tessel::Fuzz
