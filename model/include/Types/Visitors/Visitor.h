#pragma once

#include <Platform/Export.h>

namespace MXF::Tessel::Types {

class Array;
class Batch;
class Boolean;
class ISO7String;
class Length;
class LocalTag;
class Position;
class Rational;
class RGBALayout;
class UniversalLabel;
class UTF16;
class UTF16String;
class UUID;
template <unsigned short byteCount>
class TESSELMXF_MODEL_API UMID;
using UMID32 = UMID<32>;
using UMID64 = UMID<64>;
template <class Number>
class TESSELMXF_MODEL_API Integer;
using Int8 = Integer<signed char>;
using Int16 = Integer<short>;
using Int32 = Integer<int>;
using Int64 = Integer<long long>;
using UInt8 = Integer<unsigned char>;
using UInt16 = Integer<unsigned short>;
using UInt32 = Integer<unsigned int>;
using UInt64 = Integer<unsigned long long>;

namespace Visitors {

/// Asks a value for its class: the value's accept() calls the one overload of its own concrete class. Values are not
/// changed.
class TESSELMXF_MODEL_API Visitor {
 public:
  virtual ~Visitor();

  ///@{
  /// Called by the value's accept(); the value is borrowed for the call.
  virtual void visit(const Array& value) = 0;
  virtual void visit(const Batch& value) = 0;
  virtual void visit(const Boolean& value) = 0;
  virtual void visit(const Int8& value) = 0;
  virtual void visit(const Int16& value) = 0;
  virtual void visit(const Int32& value) = 0;
  virtual void visit(const Int64& value) = 0;
  virtual void visit(const UInt8& value) = 0;
  virtual void visit(const UInt16& value) = 0;
  virtual void visit(const UInt32& value) = 0;
  virtual void visit(const UInt64& value) = 0;
  virtual void visit(const Length& value) = 0;
  virtual void visit(const Position& value) = 0;
  virtual void visit(const ISO7String& value) = 0;
  virtual void visit(const UTF16& value) = 0;
  virtual void visit(const UTF16String& value) = 0;
  virtual void visit(const Rational& value) = 0;
  virtual void visit(const RGBALayout& value) = 0;
  virtual void visit(const LocalTag& value) = 0;
  virtual void visit(const UniversalLabel& value) = 0;
  virtual void visit(const UUID& value) = 0;
  virtual void visit(const UMID32& value) = 0;
  virtual void visit(const UMID64& value) = 0;
  ///@}
};

/// The same for a host that changes values in place.
class TESSELMXF_MODEL_API NonConstVisitor {
 public:
  virtual ~NonConstVisitor();

  ///@{
  /// Called by the value's accept(); the value is borrowed for the call.
  virtual void visit(Array& value) = 0;
  virtual void visit(Batch& value) = 0;
  virtual void visit(Boolean& value) = 0;
  virtual void visit(Int8& value) = 0;
  virtual void visit(Int16& value) = 0;
  virtual void visit(Int32& value) = 0;
  virtual void visit(Int64& value) = 0;
  virtual void visit(UInt8& value) = 0;
  virtual void visit(UInt16& value) = 0;
  virtual void visit(UInt32& value) = 0;
  virtual void visit(UInt64& value) = 0;
  virtual void visit(Length& value) = 0;
  virtual void visit(Position& value) = 0;
  virtual void visit(ISO7String& value) = 0;
  virtual void visit(UTF16& value) = 0;
  virtual void visit(UTF16String& value) = 0;
  virtual void visit(Rational& value) = 0;
  virtual void visit(RGBALayout& value) = 0;
  virtual void visit(LocalTag& value) = 0;
  virtual void visit(UniversalLabel& value) = 0;
  virtual void visit(UUID& value) = 0;
  virtual void visit(UMID32& value) = 0;
  virtual void visit(UMID64& value) = 0;
  ///@}
};

}  // namespace Visitors
}  // namespace MXF::Tessel::Types
