#pragma once

#include <Platform/Export.h>
#include <Types/Identifiers.h>

namespace MXF::Tessel::Types::Factories {

/// What the model knows of a data type.
struct DataTypeInfo {
  Identifiers::Identifier identifier;  ///< Its number.
  const wchar_t* name;                 ///< The model's own name of the type; valid for ever.
};

/// Tells which data types the model supports. One object serves the whole process; it never changes, so any number of
/// threads may ask it at once.
class TESSELMXF_MODEL_API BaseTypeFactory {
 public:
  /// The one object of the process.
  static BaseTypeFactory& instance();

  /// The type of a value, an item or a reference: every data type but the collection kinds and Identifier::Unknown.
  /// @throws Exceptions::TypeNotSupportedException  any other number: "Not a simple data type: " and the number.
  virtual const DataTypeInfo& lookupSimpleType(Identifiers::Identifier identifier) const;
  /// Any data type of the model, or null for Identifier::Unknown and numbers outside the enumeration.
  virtual const DataTypeInfo* findType(Identifiers::Identifier identifier) const;
  /// A collection kind: Array or Batch.
  /// @throws Exceptions::TypeNotSupportedException  any other number: "Not a collection data type: " and the number.
  virtual const DataTypeInfo& lookupCollectionType(Identifiers::Identifier identifier) const;

  BaseTypeFactory(const BaseTypeFactory&) = delete;
  BaseTypeFactory& operator=(const BaseTypeFactory&) = delete;

 protected:
  BaseTypeFactory() = default;
  ~BaseTypeFactory() = default;
};

}  // namespace MXF::Tessel::Types::Factories
