#pragma once

#include <Platform/Export.h>

namespace MXF::Tessel::Types::Identifiers {

/// Number of a data type. The numbers are fixed: hosts store and compare them.
enum class Identifier : int {
  Array = 0,
  Batch = 1,
  Boolean = 2,
  DataStream = 3,
  DataValue = 4,
  Int16 = 5,
  Int32 = 6,
  Int64 = 7,
  Int8 = 8,
  ISO7String = 9,
  ISO8String = 10,
  Length = 11,
  LocalTag = 12,
  Position = 13,
  ProductVersion = 14,
  Rational = 15,
  Timestamp = 16,
  UInt16 = 17,
  UInt32 = 18,
  UInt64 = 19,
  UInt8 = 20,
  UMID32 = 21,
  UMID64 = 22,
  UniversalLabel = 23,
  Unknown = 24,  ///< No known type: what a lookup gives for a name it does not know.
  UTF16 = 25,
  UTF16String = 26,
  UUID = 27,
  Version = 28,
  StrongReference = 29,
  WeakReference = 30,
  UTF8String = 31,
  Float = 32,
  Record = 33,
  RGBALayout = 34
};

/// The data type that a schema names, by the names of SMPTE ST 377-1 and ST 434.
/// @param name  without namespace prefix, compared case-sensitively; null counts as empty.
/// @return Identifier::Unknown for any name that is not in the table, the empty one included.
TESSELMXF_MODEL_API Identifier stringToIdentifier(const wchar_t* name);

/// The name of a data type for people: the model's own name of the type, the same that the enumerator has.
/// @return the zero-terminated name, valid for ever; "Unknown" for Identifier::Unknown and numbers outside the
///         enumeration.
TESSELMXF_MODEL_API const wchar_t* identifierToString(Identifier identifier);

/// Whether the type is a collection kind: Array or Batch.
constexpr bool isCollectionKind(Identifier identifier) {
  return identifier == Identifier::Array || identifier == Identifier::Batch;
}

/// Whether the type is a reference to a set: strong or weak.
constexpr bool isReference(Identifier identifier) {
  return identifier == Identifier::StrongReference || identifier == Identifier::WeakReference;
}

}  // namespace MXF::Tessel::Types::Identifiers
