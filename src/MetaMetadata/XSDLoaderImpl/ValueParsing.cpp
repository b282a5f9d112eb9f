// Typed values from text: a table from data type to reader. Compound values have a file of their own.

#include "ValueParsing.h"

#include "CompoundValues.h"
#include "NumberExtraction.h"
#include "SourceNames.h"

#include <Exceptions/Exceptions.h>
#include <Types/Types.h>
#include <Utils/TextConversion.h>

#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::auto_ptr;
using Templates::WideString;
using Types::BaseType;
using Types::Identifiers::Identifier;

namespace {

/// A data type and the text to be read as it.
struct TypedText {
  Identifier dataType;
  Identifier subType;
  const WideString& text;
};

using Reader = auto_ptr<BaseType> (*)(const TypedText&);

/// Reads a number as an Extracted and cuts it to the width of the value class.
template <class Value, class Extracted, class Cut = Extracted>
auto_ptr<BaseType> readNumber(const TypedText& typed) {
  const auto number = extractNumber<Extracted>(typed.text);
  if (!number) {
    const WideString message = WideString(L"Invalid ") + identifierToString(typed.dataType) + L" value: " + typed.text;
    throw Exceptions::InvalidValue(message.c_str(), SourceNames::utils, __LINE__);
  }
  return auto_ptr<BaseType>(new Value(static_cast<Cut>(*number)));
}

/// Hands the whole text to the value class's own text constructor.
template <class Value>
auto_ptr<BaseType> readIdentifier(const TypedText& typed) {
  return auto_ptr<BaseType>(new Value(typed.text.c_str(), Types::StringRepresentationEncodingType::DottedHex));
}

auto_ptr<BaseType> readBoolean(const TypedText& typed) {
  return auto_ptr<BaseType>(new Types::Boolean(typed.text != L"0"));
}

auto_ptr<BaseType> readISO7String(const TypedText& typed) {
  return auto_ptr<BaseType>(new Types::ISO7String(Utils::wstringToString(typed.text.c_str()).c_str()));
}

/// The first character of the first word.
auto_ptr<BaseType> readUTF16(const TypedText& typed) {
  const std::wstring_view word = skipWhiteSpace(typed.text);
  return auto_ptr<BaseType>(new Types::UTF16(word.empty() ? L'\0' : word.front()));
}

auto_ptr<BaseType> readUTF16String(const TypedText& typed) {
  return auto_ptr<BaseType>(new Types::UTF16String(typed.text.c_str()));
}

struct ReaderRow {
  Identifier dataType;
  Reader read;
};

constexpr ReaderRow readers[] = {
    {Identifier::Array, [](const TypedText& typed) { return stringToArray(typed.text, typed.subType); }},
    {Identifier::Batch, [](const TypedText& typed) { return stringToBatch(typed.text, typed.subType); }},
    {Identifier::Boolean, readBoolean},
    {Identifier::Int8, readNumber<Types::Int8, int, signed char>},
    {Identifier::Int16, readNumber<Types::Int16, int, short>},
    {Identifier::Int32, readNumber<Types::Int32, int>},
    {Identifier::Int64, readNumber<Types::Int64, long long>},
    {Identifier::UInt8, readNumber<Types::UInt8, unsigned int, unsigned char>},
    {Identifier::UInt16, readNumber<Types::UInt16, unsigned int, unsigned short>},
    {Identifier::UInt32, readNumber<Types::UInt32, unsigned int>},
    {Identifier::UInt64, readNumber<Types::UInt64, unsigned long long>},
    {Identifier::Length, readNumber<Types::Length, long long>},
    {Identifier::Position, readNumber<Types::Position, long long>},
    {Identifier::ISO7String, readISO7String},
    {Identifier::UTF16, readUTF16},
    {Identifier::UTF16String, readUTF16String},
    {Identifier::UMID32, readIdentifier<Types::UMID32>},
    {Identifier::UMID64, readIdentifier<Types::UMID64>},
    {Identifier::UniversalLabel, readIdentifier<Types::UniversalLabel>},
    {Identifier::UUID, readIdentifier<Types::UUID>},
    {Identifier::Rational, [](const TypedText& typed) { return stringToRational(typed.text); }},
    {Identifier::RGBALayout, [](const TypedText& typed) { return stringToRGBALayout(typed.text); }},
};

}  // namespace

auto_ptr<BaseType> stringToValue(Identifier dataType, Identifier subType, WideString text) {
  text.resize(std::char_traits<wchar_t>::length(text.c_str()));
  for (const ReaderRow& row : readers) {
    if (row.dataType == dataType) return row.read({dataType, subType, text});
  }
  return nullptr;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
