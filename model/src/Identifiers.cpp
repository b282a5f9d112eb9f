// The data types of the model: their names and what kind each is. One table; all look-ups read it.

#include <Exceptions/Exceptions.h>
#include <Types/Factories/BaseTypeFactory.h>
#include <Types/Identifiers.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace MXF::Tessel::Types {

using Factories::BaseTypeFactory;
using Factories::DataTypeInfo;
using Identifiers::Identifier;
using Templates::WideString;

namespace {

struct TypeRow {
  DataTypeInfo info;
  /// Names under which schemas mention the type; the unused places are empty.
  std::array<std::wstring_view, 7> schemaNames;
};

constexpr const wchar_t* unknownName = L"Unknown";

// In the order of the numbers, which is checked below.
constexpr TypeRow typeTable[] = {
    {{Identifier::Array, L"Array"}, {L"Array"}},
    {{Identifier::Batch, L"Batch"}, {L"Batch"}},
    {{Identifier::Boolean, L"Boolean"}, {L"Boolean"}},
    {{Identifier::DataStream, L"DataStream"}, {L"DataStream"}},
    {{Identifier::DataValue, L"DataValue"}, {L"DataValue"}},
    {{Identifier::Int16, L"Int16"}, {L"Int16"}},
    {{Identifier::Int32, L"Int32"}, {L"Int32"}},
    {{Identifier::Int64, L"Int64"}, {L"Int64"}},
    {{Identifier::Int8, L"Int8"}, {L"Int8"}},
    {{Identifier::ISO7String, L"ISO7String"}, {L"ISO7bitCharString", L"ISO7String"}},
    {{Identifier::ISO8String, L"ISO8String"}, {L"ISO8BitCharString", L"ISO8String"}},
    {{Identifier::Length, L"Length"}, {L"Length"}},
    {{Identifier::LocalTag, L"LocalTag"}, {L"LocalTag"}},
    {{Identifier::Position, L"Position"}, {L"Position"}},
    {{Identifier::ProductVersion, L"ProductVersion"}, {L"ProductVersionType", L"ProductVersion"}},
    {{Identifier::Rational, L"Rational"}, {L"Rational", L"EditRate"}},
    {{Identifier::Timestamp, L"Timestamp"}, {L"TimestampType", L"Timestamp"}},
    {{Identifier::UInt16, L"UInt16"}, {L"UInt16"}},
    {{Identifier::UInt32, L"UInt32"}, {L"UInt32"}},
    {{Identifier::UInt64, L"UInt64"}, {L"UInt64"}},
    {{Identifier::UInt8, L"UInt8"}, {L"UInt8", L"Orientation", L"SignalStandard"}},
    {{Identifier::UMID32, L"UMID32"}, {L"UMID32"}},
    {{Identifier::UMID64, L"UMID64"}, {L"UMID64"}},
    {{Identifier::UniversalLabel, L"UniversalLabel"}, {L"UL", L"KLVKey", L"UniversalLabel"}},
    {{Identifier::Unknown, unknownName}, {}},
    {{Identifier::UTF16, L"UTF16"}, {L"UTF16Char", L"UTF16"}},
    {{Identifier::UTF16String, L"UTF16String"}, {L"UTF16CharString", L"UTF16String"}},
    {{Identifier::UUID, L"UUID"}, {L"UUID", L"AUID", L"IDAU"}},
    {{Identifier::Version, L"Version"}, {L"VersionType", L"Version"}},
    {{Identifier::StrongReference, L"StrongReference"}, {L"StrongReference"}},
    {{Identifier::WeakReference, L"WeakReference"}, {L"WeakReference"}},
    {{Identifier::UTF8String, L"UTF8String"}, {L"UTF8CharString", L"UTF8String"}},
    {{Identifier::Float, L"Float"}, {L"Float"}},
    {{Identifier::Record, L"Record"},
     {L"Record", L"IndexEntryType", L"DeltaEntryType", L"J2KPictureComponentType", L"J2KComponentSizingArray",
      L"J2KCodingStyleDefault", L"J2KQuantisationDefault"}},
    {{Identifier::RGBALayout, L"RGBALayout"}, {L"RGBALayout"}},
};

constexpr bool numbersMatchPositions() {
  int number = 0;
  for (const TypeRow& row : typeTable) {
    if (static_cast<int>(row.info.identifier) != number++) return false;
  }
  return true;
}
static_assert(numbersMatchPositions(), "the table is indexed by the data type's number");

const TypeRow* findRow(Identifier identifier) {
  const auto number = static_cast<int>(identifier);
  return number >= 0 && number < static_cast<int>(std::size(typeTable)) ? &typeTable[number] : nullptr;
}

WideString withNumber(const wchar_t* text, Identifier identifier) {
  return text + Utils::toDecimal(static_cast<int>(identifier));
}

class Factory final : public BaseTypeFactory {};

}  // namespace

namespace Identifiers {

Identifier stringToIdentifier(const wchar_t* name) {
  if (name == nullptr || *name == L'\0') return Identifier::Unknown;
  const auto hasName = [name](const TypeRow& row) {
    return std::find(row.schemaNames.begin(), row.schemaNames.end(), name) != row.schemaNames.end();
  };
  const auto* row = std::find_if(std::begin(typeTable), std::end(typeTable), hasName);
  return row == std::end(typeTable) ? Identifier::Unknown : row->info.identifier;
}

const wchar_t* identifierToString(Identifier identifier) {
  const TypeRow* row = findRow(identifier);
  return row == nullptr ? unknownName : row->info.name;
}

}  // namespace Identifiers

namespace Factories {

BaseTypeFactory& BaseTypeFactory::instance() {
  static Factory factory;
  return factory;
}

const DataTypeInfo* BaseTypeFactory::findType(Identifier identifier) const {
  const TypeRow* row = findRow(identifier);
  return row == nullptr || identifier == Identifier::Unknown ? nullptr : &row->info;
}

const DataTypeInfo& BaseTypeFactory::lookupSimpleType(Identifier identifier) const {
  const DataTypeInfo* type = findType(identifier);
  if (type == nullptr || isCollectionKind(identifier)) {
    throw Exceptions::TypeNotSupportedException(withNumber(L"Not a simple data type: ", identifier).c_str(),
                                                "Identifiers", __LINE__);
  }
  return *type;
}

const DataTypeInfo& BaseTypeFactory::lookupCollectionType(Identifier identifier) const {
  if (!isCollectionKind(identifier)) {
    throw Exceptions::TypeNotSupportedException(withNumber(L"Not a collection data type: ", identifier).c_str(),
                                                "Identifiers", __LINE__);
  }
  return *findType(identifier);
}

}  // namespace Factories
}  // namespace MXF::Tessel::Types
