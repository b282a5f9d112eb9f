#pragma once

#include <Types/BaseType.h>
#include <Types/WireForm.h>

namespace MXF::Tessel::Types {

/// An integer value of one fixed width: Int8 to Int64 and UInt8 to UInt64 (SMPTE ST 377-1, basic types).
template <class Number>
class TESSELMXF_MODEL_API Integer : public SimpleDataType {
 public:
  /// @param number  any of its type's numbers.
  explicit Integer(Number number) : wire_(number) {}
  Integer(const Integer&) = default;
  Integer& operator=(const Integer&) = default;
  ~Integer() override;

  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return wire_.bytes(); }
  unsigned short serializedSize() const override { return sizeof(Number); }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// The number, in the order of bytes of this machine.
  Number value() const { return wire_.value(); }

 private:
  BigEndian<Number> wire_;
};

extern template class Integer<signed char>;
extern template class Integer<short>;
extern template class Integer<int>;
extern template class Integer<long long>;
extern template class Integer<unsigned char>;
extern template class Integer<unsigned short>;
extern template class Integer<unsigned int>;
extern template class Integer<unsigned long long>;

/// A length in edit units; -1 where MXF gives "unknown" (SMPTE ST 377-1).
class TESSELMXF_MODEL_API Length : public Int64 {
 public:
  /// @param editUnits  -1 where the length is not known.
  explicit Length(const long long& editUnits) : Int64(editUnits) {}
  ~Length() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  Templates::auto_ptr<SimpleDataType> clone() const override;
};

/// A position in edit units (SMPTE ST 377-1).
class TESSELMXF_MODEL_API Position : public Int64 {
 public:
  /// @param editUnits  may be negative.
  explicit Position(const long long& editUnits) : Int64(editUnits) {}
  ~Position() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  Templates::auto_ptr<SimpleDataType> clone() const override;
};

/// True or false, one byte of 1 or 0.
class TESSELMXF_MODEL_API Boolean : public SimpleDataType {
 public:
  /// @param value  written as 1 or 0.
  explicit Boolean(bool value) : byte_(value ? 1 : 0) {}
  ~Boolean() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  const unsigned char* rawBuffer() const override { return &byte_; }
  unsigned short serializedSize() const override { return 1; }
  Templates::auto_ptr<SimpleDataType> clone() const override;

  /// The truth value.
  bool value() const { return byte_ != 0; }

 private:
  unsigned char byte_;
};

}  // namespace MXF::Tessel::Types
