#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>
#include <Types/StringRepresentation.h>

#include <array>
#include <cstddef>

namespace MXF::Tessel::KLV {

/// The 16-byte key of a set (SMPTE ST 336, SMPTE ST 377-1). A plain value: copied freely, ordered by its bytes.
class TESSELMXF_MODEL_API Key {
 public:
  /// The key as it stands in a file.
  using Bytes = std::array<unsigned char, 16>;

  /// @param bytes  copied.
  explicit Key(const Bytes& bytes) : bytes_(bytes) {}

  /// @param text      not null: 16 bytes of two hexadecimal digits, joined by "."; letters in either case.
  /// @param encoding  the form of the text.
  /// @throws Exceptions::InvalidULDesignator  the text is anything else; the message is the text.
  Key(const wchar_t* text, Types::StringRepresentationEncodingType encoding);

  /// The 16 bytes; valid as long as the key.
  const Bytes& bytes() const { return bytes_; }

  /// 16 bytes of two upper-case hexadecimal digits, joined by ".": 47 characters.
  Templates::WideString toString(Types::StringRepresentationEncodingType encoding) const;

  static void* operator new(std::size_t size);
  static void operator delete(void* block, std::size_t size) noexcept;

 private:
  Bytes bytes_;
};

inline bool operator<(const Key& a, const Key& b) {
  return a.bytes() < b.bytes();
}
inline bool operator==(const Key& a, const Key& b) {
  return a.bytes() == b.bytes();
}
inline bool operator!=(const Key& a, const Key& b) {
  return !(a == b);
}

}  // namespace MXF::Tessel::KLV
