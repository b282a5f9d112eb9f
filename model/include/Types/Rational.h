#pragma once

#include <Types/BaseType.h>

#include <array>

namespace MXF::Tessel::Types {

/// A ratio of two 32-bit signed integers, numerator first. The denominator may be 0.
class TESSELMXF_MODEL_API Rational : public SimpleDataType {
 public:
  /// Keeps both numbers as they are: nothing is reduced.
  Rational(int numerator, int denominator);
  ~Rational() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return wire_.data(); }
  unsigned short serializedSize() const override { return sizeof(wire_); }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// As given.
  int numerator() const;
  /// As given; may be 0.
  int denominator() const;

 private:
  std::array<unsigned char, 8> wire_{};
};

}  // namespace MXF::Tessel::Types
