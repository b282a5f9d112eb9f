#pragma once

#include <DataIO/DataSink.h>
#include <Platform/Export.h>
#include <Templates/auto_ptr.h>
#include <Types/Visitors/Visitor.h>

#include <cstddef>

namespace MXF::Tessel::Types {

namespace Visitors {

/// What a visitor can be sent to.
class TESSELMXF_MODEL_API Visitable {
 public:
  virtual ~Visitable();

  ///@{
  /// Calls the visitor's overload for the concrete class of this object.
  virtual void accept(NonConstVisitor& visitor) = 0;
  virtual void accept(Visitor& visitor) const = 0;
  ///@}

  static void* operator new(std::size_t size);
  static void operator delete(void* block, std::size_t size) noexcept;

 protected:
  Visitable() = default;
  Visitable(const Visitable&) = default;
  Visitable& operator=(const Visitable&) = default;
};

}  // namespace Visitors

/// Any metadata value. One thread changes a value; while nobody does, any number of threads may read it.
class TESSELMXF_MODEL_API BaseType : public Visitors::Visitable {
 public:
  ~BaseType() override;

  /// Writes the value as SMPTE ST 377-1 puts it into a property's value field: big-endian, text as its code units.
  /// @throws Exceptions::InvalidValue  the value has no wire form (see the concrete class); nothing is written then.
  virtual void serialize(DataIO::DataSink& sink) const = 0;

 protected:
  BaseType() = default;
  BaseType(const BaseType&) = default;
  BaseType& operator=(const BaseType&) = default;
};

/// One value that is no collection. It keeps its wire form, and its accessors read from that.
class TESSELMXF_MODEL_API SimpleDataType : public BaseType {
 public:
  ~SimpleDataType() override;

  /// Writes rawBuffer(), serializedSize() bytes of it.
  void serialize(DataIO::DataSink& sink) const override;
  /// The wire form; valid while the value lives and is not assigned to.
  virtual const unsigned char* rawBuffer() const = 0;
  /// Length of the wire form in bytes. Property lengths in MXF sets are 16 bits wide (SMPTE ST 377-1, local sets).
  /// @throws Exceptions::InvalidValue  the value takes more than 65535 bytes.
  virtual unsigned short serializedSize() const = 0;
  /// A copy that the caller owns.
  virtual Templates::auto_ptr<SimpleDataType> clone() const = 0;

 protected:
  SimpleDataType() = default;
  SimpleDataType(const SimpleDataType&) = default;
  SimpleDataType& operator=(const SimpleDataType&) = default;
};

}  // namespace MXF::Tessel::Types
