// The simple values but the identifiers: how each keeps its wire form and reads it back.

#include <Exceptions/Exceptions.h>
#include <Platform/malloc_alloc.h>
#include <Types/Integers.h>
#include <Types/RGBALayout.h>
#include <Types/Rational.h>
#include <Types/Strings.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <limits>
#include <string>

namespace MXF::Tessel::Types {

using Exceptions::InvalidValue;
using Templates::WideString;

Visitors::Visitor::~Visitor() = default;
Visitors::NonConstVisitor::~NonConstVisitor() = default;
Visitors::Visitable::~Visitable() = default;
BaseType::~BaseType() = default;
SimpleDataType::~SimpleDataType() = default;

void* Visitors::Visitable::operator new(std::size_t size) {
  return Platform::malloc_alloc::allocate(size);
}
void Visitors::Visitable::operator delete(void* block, std::size_t size) noexcept {
  Platform::malloc_alloc::deallocate(block, size);
}

void SimpleDataType::serialize(DataIO::DataSink& sink) const {
  sink.write(rawBuffer(), serializedSize());
}

unsigned short propertyLength(std::size_t bytes) {
  if (bytes > std::numeric_limits<unsigned short>::max()) {
    const WideString message = L"A value of " + Utils::toDecimal(static_cast<long long>(bytes)) +
                               L" bytes does not fit the 65535 bytes of a property.";
    throw InvalidValue(message.c_str(), "Values", __LINE__);
  }
  return static_cast<unsigned short>(bytes);
}

// Integers, Boolean

template <class Number>
Integer<Number>::~Integer() = default;
template <class Number>
void Integer<Number>::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
template <class Number>
void Integer<Number>::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
template <class Number>
Templates::auto_ptr<SimpleDataType> Integer<Number>::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new Integer(*this));
}

template class Integer<signed char>;
template class Integer<short>;
template class Integer<int>;
template class Integer<long long>;
template class Integer<unsigned char>;
template class Integer<unsigned short>;
template class Integer<unsigned int>;
template class Integer<unsigned long long>;

Length::~Length() = default;
void Length::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void Length::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> Length::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new Length(*this));
}

Position::~Position() = default;
void Position::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void Position::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> Position::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new Position(*this));
}

Boolean::~Boolean() = default;
void Boolean::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void Boolean::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> Boolean::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new Boolean(*this));
}

// Text

ISO7String::ISO7String(const char* text) : text_(text) {
  const auto isAbove7Bit = [](char character) { return static_cast<unsigned char>(character) > 0x7F; };
  if (std::any_of(text_.begin(), text_.end(), isAbove7Bit)) {
    const WideString message = L"Not an ISO 7-bit text: " + Utils::stringToWstring(text);
    throw InvalidValue(message.c_str(), "Values", __LINE__);
  }
}
ISO7String::~ISO7String() = default;
void ISO7String::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void ISO7String::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
const unsigned char* ISO7String::rawBuffer() const {
  return reinterpret_cast<const unsigned char*>(text_.data());
}
Templates::auto_ptr<SimpleDataType> ISO7String::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new ISO7String(*this));
}

UTF16::UTF16(wchar_t codeUnit) : wire_(static_cast<unsigned short>(codeUnit)) {
  if (static_cast<char32_t>(codeUnit) > 0xFFFF) {
    throw InvalidValue(L"A character above FFFF is no single UTF-16 code unit.", "Values", __LINE__);
  }
}
UTF16::~UTF16() = default;
void UTF16::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void UTF16::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> UTF16::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new UTF16(*this));
}

UTF16String::UTF16String(const wchar_t* text) : text_(Utils::toCodeUnits(text)), wire_(text_.size() * 2) {
  unsigned char* bytes = wire_.data();
  for (const wchar_t unit : text_) {
    BigEndian<unsigned short>::store(bytes, static_cast<unsigned short>(unit));
    bytes += 2;
  }
}
UTF16String::~UTF16String() = default;
void UTF16String::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void UTF16String::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> UTF16String::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new UTF16String(*this));
}

// Rational, RGBALayout

Rational::Rational(int numerator, int denominator) {
  BigEndian<int>::store(wire_.data(), numerator);
  BigEndian<int>::store(wire_.data() + sizeof(int), denominator);
}
Rational::~Rational() = default;
void Rational::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void Rational::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> Rational::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new Rational(*this));
}
int Rational::numerator() const {
  return BigEndian<int>::load(wire_.data());
}
int Rational::denominator() const {
  return BigEndian<int>::load(wire_.data() + sizeof(int));
}

namespace {

void checkComponentIndex(unsigned int index) {
  if (index < RGBALayout::componentCount) return;
  const WideString message = L"RGBALayout has 8 components, no component " + Utils::toDecimal(index);
  throw InvalidValue(message.c_str(), "Values", __LINE__);
}

}  // namespace

RGBALayout::~RGBALayout() = default;
void RGBALayout::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void RGBALayout::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> RGBALayout::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new RGBALayout(*this));
}

void RGBALayout::set(unsigned int index, RGBAComponent component) {
  checkComponentIndex(index);
  wire_[std::size_t{2} * index] = component.code;
  wire_[std::size_t{2} * index + 1] = component.depth;
}

RGBALayout::RGBAComponent RGBALayout::get(unsigned int index) const {
  checkComponentIndex(index);
  return {wire_[std::size_t{2} * index], wire_[std::size_t{2} * index + 1]};
}

}  // namespace MXF::Tessel::Types
