// Labels, UUIDs, UMIDs and local tags: their text forms.

#include "HexText.h"

#include <Exceptions/Exceptions.h>
#include <Types/LocalTag.h>
#include <Types/UID.h>
#include <Utils/TextConversion.h>

#include <string_view>

namespace MXF::Tessel::Types {

using Exceptions::InvalidValue;
using Templates::WideString;

namespace {

bool parseLabel(std::wstring_view text, UniversalLabel::Bytes& bytes) {
  if (HexText::parseDotted(text, bytes.data(), bytes.size())) return true;
  return HexText::skipPrefix(text, L"urn:smpte:ul:") && HexText::parseGroups(text, L'.', {4, 4, 4, 4}, bytes.data());
}

bool parseUuid(std::wstring_view text, std::array<unsigned char, 16>& bytes) {
  if (HexText::parseDotted(text, bytes.data(), bytes.size())) return true;
  HexText::skipPrefix(text, L"urn:uuid:");
  return HexText::parseGroups(text, L'-', {4, 2, 2, 2, 6}, bytes.data());
}

/// UMIDs and local tags: bytes joined by dots, or plain digits with or without 0x.
template <std::size_t count>
bool parseDottedOrPlain(std::wstring_view text, std::array<unsigned char, count>& bytes) {
  if (HexText::parseDotted(text, bytes.data(), count)) return true;
  HexText::skipPrefix(text, L"0x");
  return HexText::parseGroups(text, L'\0', {count}, bytes.data());
}

[[noreturn]] void rejectText(const wchar_t* reason, const wchar_t* text) {
  throw InvalidValue((WideString(reason) + text).c_str(), "UID", __LINE__);
}

}  // namespace

UID::~UID() = default;

unsigned char UID::operator[](int position) const {
  if (position < 0 || position >= size()) {
    const WideString message = L"The identifier has no byte " + Utils::toDecimal(position);
    throw Exceptions::NotFound(message.c_str(), "UID", __LINE__);
  }
  return rawBuffer()[position];
}

WideString UID::toString(StringRepresentationEncodingType /*encoding*/) const {
  return HexText::dotted(rawBuffer(), size());
}

UniversalLabel::UniversalLabel(const wchar_t* text, StringRepresentationEncodingType /*encoding*/) : bytes_{} {
  if (!parseLabel(text, bytes_)) throw Exceptions::InvalidULDesignator(text, "UID", __LINE__);
}
UniversalLabel::~UniversalLabel() = default;
void UniversalLabel::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void UniversalLabel::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> UniversalLabel::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new UniversalLabel(*this));
}

UUID::UUID(const wchar_t* text, StringRepresentationEncodingType /*encoding*/) {
  if (!parseUuid(text, bytes_)) rejectText(L"Invalid UUID: ", text);
}
UUID::~UUID() = default;
void UUID::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void UUID::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> UUID::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new UUID(*this));
}

template <unsigned short byteCount>
UMID<byteCount>::UMID(const wchar_t* text, StringRepresentationEncodingType /*encoding*/) {
  if (!parseDottedOrPlain(text, bytes_)) rejectText(L"Invalid UMID: ", text);
}
template <unsigned short byteCount>
UMID<byteCount>::~UMID() = default;
template <unsigned short byteCount>
void UMID<byteCount>::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
template <unsigned short byteCount>
void UMID<byteCount>::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
template <unsigned short byteCount>
Templates::auto_ptr<SimpleDataType> UMID<byteCount>::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new UMID(*this));
}

template class UMID<32>;
template class UMID<64>;

LocalTag::LocalTag(const wchar_t* text, StringRepresentationEncodingType /*encoding*/) {
  if (!parseDottedOrPlain(text, bytes_)) rejectText(L"Invalid local tag: ", text);
}
LocalTag::~LocalTag() = default;
void LocalTag::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void LocalTag::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<SimpleDataType> LocalTag::clone() const {
  return Templates::auto_ptr<SimpleDataType>(new LocalTag(*this));
}
unsigned short LocalTag::size() const {
  return serializedSize();
}
WideString LocalTag::toString(StringRepresentationEncodingType /*encoding*/) const {
  return HexText::dotted(bytes_.data(), bytes_.size());
}

}  // namespace MXF::Tessel::Types
