#pragma once

#include <KLV/Key.h>
#include <Templates/Containers.h>
#include <Types/BaseType.h>
#include <Types/StringRepresentation.h>

#include <array>

namespace MXF::Tessel::Types {

/// An identifier that is a string of bytes.
class TESSELMXF_MODEL_API UID : public SimpleDataType {
 public:
  ~UID() override;

  /// The byte at a position, the first at 0.
  /// @throws Exceptions::NotFound  there is no such byte.
  virtual unsigned char operator[](int position) const;
  /// Number of bytes.
  virtual unsigned short size() const = 0;
  /// The bytes as two upper-case hexadecimal digits each, joined by ".".
  virtual Templates::WideString toString(StringRepresentationEncodingType encoding) const;

  unsigned short serializedSize() const override { return size(); }

 protected:
  UID() = default;
  UID(const UID&) = default;
  UID& operator=(const UID&) = default;
};

/// The 16-byte SMPTE Universal Label of an element, or a label as a value (SMPTE ST 298, ST 336). Ordered by its bytes.
class TESSELMXF_MODEL_API UniversalLabel : public UID {
 public:
  /// The label as it stands in a file.
  using Bytes = KLV::Key::Bytes;

  /// @param text      not null: 16 bytes of two hexadecimal digits, joined by ".", or urn:smpte:ul: and four groups of
  ///                  eight digits joined by "."; letters in either case.
  /// @param encoding  the form of the text.
  /// @throws Exceptions::InvalidULDesignator  the text is anything else; the message is the text.
  UniversalLabel(const wchar_t* text, StringRepresentationEncodingType encoding);
  /// The label with the key's bytes.
  // NOLINTNEXTLINE(google-explicit-constructor): keys and labels convert into each other.
  UniversalLabel(const KLV::Key& key) : bytes_(key.bytes()) {}
  UniversalLabel(const UniversalLabel&) = default;
  UniversalLabel& operator=(const UniversalLabel&) = default;
  ~UniversalLabel() override;

  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return bytes_.data(); }
  Templates::auto_ptr<SimpleDataType> clone() const override;
  unsigned short size() const override { return sizeof(bytes_); }

  /// The 16 bytes; valid while this object lives.
  const Bytes& bytes() const { return bytes_; }
  /// The key with the label's bytes.
  KLV::Key key() const { return KLV::Key(bytes_); }

 private:
  Bytes bytes_;
};

inline bool operator<(const UniversalLabel& a, const UniversalLabel& b) {
  return a.bytes() < b.bytes();
}
inline bool operator==(const UniversalLabel& a, const UniversalLabel& b) {
  return a.bytes() == b.bytes();
}

/// A 16-byte UUID (RFC 4122), also the form of AUIDs and of instance identifiers.
class TESSELMXF_MODEL_API UUID : public UID {
 public:
  /// @param text      not null: 16 bytes joined by ".", or 8-4-4-4-12 digits, with or without urn:uuid: before them;
  ///                  letters in either case.
  /// @param encoding  the form of the text.
  /// @throws Exceptions::InvalidValue  the text is anything else: "Invalid UUID: " and the text.
  UUID(const wchar_t* text, StringRepresentationEncodingType encoding);
  ~UUID() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return bytes_.data(); }
  Templates::auto_ptr<SimpleDataType> clone() const override;
  unsigned short size() const override { return sizeof(bytes_); }

 private:
  std::array<unsigned char, 16> bytes_{};
};

/// A UMID (SMPTE ST 330): UMID32, the basic one of 32 bytes, or UMID64, the extended one of 64 bytes.
template <unsigned short byteCount>
class TESSELMXF_MODEL_API UMID : public UID {
 public:
  /// @param text      not null: the bytes joined by ".", or all their digits, with or without 0x before them; letters
  ///                  in either case.
  /// @param encoding  the form of the text.
  /// @throws Exceptions::InvalidValue  the text is anything else: "Invalid UMID: " and the text.
  UMID(const wchar_t* text, StringRepresentationEncodingType encoding);
  UMID(const UMID&) = default;
  UMID& operator=(const UMID&) = default;
  ~UMID() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return bytes_.data(); }
  Templates::auto_ptr<SimpleDataType> clone() const override;
  unsigned short size() const override { return byteCount; }

 private:
  std::array<unsigned char, byteCount> bytes_{};
};

extern template class UMID<32>;
extern template class UMID<64>;

}  // namespace MXF::Tessel::Types
