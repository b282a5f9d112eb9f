#pragma once

#include <Platform/Export.h>

#include <array>
#include <cstddef>
#include <type_traits>

namespace MXF::Tessel::Types {

/// A number in its big-endian wire form.
template <class Number>
class BigEndian {
 public:
  /// @param number  kept as its bytes.
  explicit BigEndian(Number number) { store(bytes_.data(), number); }

  /// The number, in the order of bytes of this machine.
  Number value() const { return load(bytes_.data()); }
  /// The sizeof(Number) bytes, the most significant first; valid while this object lives and is not assigned to.
  const unsigned char* bytes() const { return bytes_.data(); }

  /// Writes the number's sizeof(Number) bytes, the most significant first.
  static void store(unsigned char* bytes, Number number) {
    // Through the unsigned type of the same width: only the low bytes count, and no sign extension is needed.
    auto rest = static_cast<unsigned long long>(static_cast<std::make_unsigned_t<Number>>(number));
    for (std::size_t i = sizeof(Number); i-- > 0; rest >>= 8U) bytes[i] = static_cast<unsigned char>(rest & 0xFFU);
  }
  /// The reverse of store().
  static Number load(const unsigned char* bytes) {
    unsigned long long number = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) number = number << 8U | bytes[i];
    return static_cast<Number>(static_cast<std::make_unsigned_t<Number>>(number));
  }

 private:
  std::array<unsigned char, sizeof(Number)> bytes_;
};

/// The length as a property length.
/// @throws Exceptions::InvalidValue  it is above 65535.
TESSELMXF_MODEL_API unsigned short propertyLength(std::size_t bytes);

}  // namespace MXF::Tessel::Types
