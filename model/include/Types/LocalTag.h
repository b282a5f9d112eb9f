#pragma once

#include <Templates/Containers.h>
#include <Types/BaseType.h>
#include <Types/StringRepresentation.h>

#include <array>

namespace MXF::Tessel::Types {

/// Two-byte tag that stands for an element's label inside a local set (SMPTE ST 377-1, local tags).
class TESSELMXF_MODEL_API LocalTag : public SimpleDataType {
 public:
  /// @param text      not null: two bytes of hexadecimal digits joined by "." (3C.0A), four digits, or 0x and four
  ///                  digits; letters in either case.
  /// @param encoding  the form of the text.
  /// @throws Exceptions::InvalidValue  the text is anything else: "Invalid local tag: " and the text.
  LocalTag(const wchar_t* text, StringRepresentationEncodingType encoding);
  LocalTag(const LocalTag&) = default;
  LocalTag& operator=(const LocalTag&) = default;
  ~LocalTag() override;

  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return bytes_.data(); }
  unsigned short serializedSize() const override { return sizeof(bytes_); }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// Number of bytes: 2.
  virtual unsigned short size() const;
  /// Two bytes of two upper-case hexadecimal digits, joined by ".": 5 characters.
  virtual Templates::WideString toString(StringRepresentationEncodingType encoding) const;

  ///@{
  /// By the bytes, as unsigned numbers.
  friend bool operator<(const LocalTag& a, const LocalTag& b) { return a.bytes_ < b.bytes_; }
  friend bool operator==(const LocalTag& a, const LocalTag& b) { return a.bytes_ == b.bytes_; }
  ///@}

 private:
  std::array<unsigned char, 2> bytes_{};
};

}  // namespace MXF::Tessel::Types
