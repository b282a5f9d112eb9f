#pragma once

#include <Templates/Containers.h>
#include <Types/BaseType.h>
#include <Types/WireForm.h>

namespace MXF::Tessel::Types {

/// Text of ISO 7-bit characters, one byte each, without a terminator.
class TESSELMXF_MODEL_API ISO7String : public SimpleDataType {
 public:
  /// @param text  zero-terminated, not null; copied.
  /// @throws Exceptions::InvalidValue  a byte is above 7F hex: "Not an ISO 7-bit text: " and the text.
  explicit ISO7String(const char* text);
  ~ISO7String() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override;
  unsigned short serializedSize() const override { return propertyLength(text_.size()); }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// The text, zero-terminated; valid while this object lives and is not assigned to.
  const char* value() const { return text_.c_str(); }

 private:
  Templates::NarrowString text_;
};

/// One UTF-16 code unit.
class TESSELMXF_MODEL_API UTF16 : public SimpleDataType {
 public:
  /// @throws Exceptions::InvalidValue  the character is above FFFF hex: "A character above FFFF is no single UTF-16
  ///         code unit."
  explicit UTF16(wchar_t codeUnit);
  ~UTF16() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return wire_.bytes(); }
  unsigned short serializedSize() const override { return 2; }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// The code unit.
  wchar_t value() const { return static_cast<wchar_t>(wire_.value()); }

 private:
  BigEndian<unsigned short> wire_;
};

/// Text of UTF-16 code units, two bytes each, without a terminator.
class TESSELMXF_MODEL_API UTF16String : public SimpleDataType {
 public:
  /// @param text  zero-terminated; copied. A character above FFFF hex is stored as its surrogate pair.
  explicit UTF16String(const wchar_t* text);
  ~UTF16String() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return wire_.data(); }
  unsigned short serializedSize() const override { return propertyLength(wire_.size()); }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// The text, one code unit per character.
  const wchar_t* value() const { return text_.c_str(); }

 private:
  Templates::WideString text_;
  Templates::vector<unsigned char> wire_;
};

}  // namespace MXF::Tessel::Types
