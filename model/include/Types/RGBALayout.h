#pragma once

#include <Types/BaseType.h>

#include <array>
#include <cstddef>

namespace MXF::Tessel::Types {

/// Order and size of the components of a pixel: eight pairs of component code and depth (SMPTE ST 377-1, RGBALayout).
class TESSELMXF_MODEL_API RGBALayout : public SimpleDataType {
 public:
  /// One component of a pixel.
  struct RGBAComponent {
    unsigned char code;   ///< ISO 7-bit character of the component, such as 'R'; 0 for one that is not used.
    unsigned char depth;  ///< Bits, or one of the standard's values for other representations.
  };
  /// Components of every layout, unused ones included.
  static constexpr unsigned int componentCount = 8;

  /// Eight components of code 0 and depth 0.
  RGBALayout() = default;
  ~RGBALayout() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return wire_.data(); }
  unsigned short serializedSize() const override { return sizeof(wire_); }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// @throws Exceptions::InvalidValue  the index is above 7: "RGBALayout has 8 components, no component " and the
  ///         index.
  void set(unsigned int index, RGBAComponent component);
  /// @throws Exceptions::InvalidValue  as set().
  RGBAComponent get(unsigned int index) const;

 private:
  std::array<unsigned char, std::size_t{2} * componentCount> wire_{};
};

}  // namespace MXF::Tessel::Types
