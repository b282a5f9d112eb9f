// Values written as braced lists. Entry points: the four stringTo functions, called by stringToValue().

#include "CompoundValues.h"

#include "NumberExtraction.h"
#include "SourceNames.h"
#include "ValueParsing.h"

#include <Exceptions/Exceptions.h>
#include <Types/Factories/BaseTypeFactory.h>
#include <Types/Types.h>

#include <algorithm>
#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::auto_ptr;
using Templates::WideString;
using Types::BaseType;
using Types::Identifiers::Identifier;
using Items = Templates::vector<WideString>;

namespace {

constexpr std::size_t shortestList = 4;
constexpr std::size_t shortestGroupList = 49;

bool isBraced(const WideString& text, std::size_t shortest) {
  return text.size() >= shortest && text.front() == L'{' && text.back() == L'}';
}

/// Size of an item as collections of its type are made with; 0 where the size is not fixed here.
int elementSizeOf(Identifier subType) {
  switch (subType) {
    case Identifier::Boolean:
      return 1;
    case Identifier::UTF16:
      return 2;
    case Identifier::Int8:
    case Identifier::Int16:
    case Identifier::Int32:
    case Identifier::UInt8:
    case Identifier::UInt16:
    case Identifier::UInt32:
      return 4;
    case Identifier::Int64:
    case Identifier::Length:
    case Identifier::Position:
    case Identifier::UInt64:
      return 8;
    default:
      return 0;
  }
}

/// The value as a Value, which the data type it was read with guarantees.
template <class Value>
auto_ptr<Value> valueAs(auto_ptr<BaseType> value) {
  return auto_ptr<Value>(static_cast<Value*>(value.release()));
}

/// Hands over the items of "{item,item,...}" one by one: a list of millions would take many times its text.
template <class Handler>
void forEachItem(const WideString& text, Handler handle) {
  if (!isBraced(text, shortestList)) return;
  const std::size_t closingBrace = text.size() - 1;
  for (std::size_t start = 1; start < closingBrace;) {
    const std::size_t end = std::min(text.find(L',', start), closingBrace);
    handle(text.substr(start, end - start));
    start = end + 1;
  }
}

template <class CollectionKind>
auto_ptr<BaseType> readCollection(const WideString& text, Identifier subType) {
  if (isCollectionKind(subType)) Types::Factories::BaseTypeFactory::instance().lookupSimpleType(subType);
  auto_ptr<CollectionKind> collection(new CollectionKind(elementSizeOf(subType)));
  forEachItem(text, [&](WideString item) {
    collection->append(valueAs<Types::SimpleDataType>(stringToValue(subType, Identifier::Unknown, std::move(item))));
  });
  return collection;
}

template <class Value>
auto readInteger(Identifier dataType, const WideString& text) {
  return valueAs<Value>(stringToValue(dataType, Identifier::Unknown, text))->value();
}

[[noreturn]] void rejectText(const wchar_t* reason, const WideString& text) {
  throw Exceptions::InvalidValue((reason + text).c_str(), SourceNames::utils, __LINE__);
}

}  // namespace

Items splitBracedList(const WideString& text) {
  Items items;
  forEachItem(text, [&](WideString item) { items.push_back(std::move(item)); });
  return items;
}

Items splitBracedGroups(const WideString& text) {
  Items items;
  if (!isBraced(text, shortestGroupList)) return items;
  std::size_t start = 1;
  while (start < text.size()) {
    const std::size_t end = text.find(L'}', start);
    if (end == WideString::npos) break;
    for (WideString& item : splitBracedList(text.substr(start, end + 1 - start))) items.push_back(std::move(item));
    start = end + 2;  // past the separator
  }
  return items;
}

auto_ptr<BaseType> stringToArray(const WideString& text, Identifier subType) {
  return readCollection<Types::Array>(text, subType);
}

auto_ptr<BaseType> stringToBatch(const WideString& text, Identifier subType) {
  return readCollection<Types::Batch>(text, subType);
}

auto_ptr<BaseType> stringToRational(const WideString& text) {
  const Items items = splitBracedList(text);
  if (items.size() < 2) rejectText(L"Invalid Rational value: ", text);
  const int numerator = readInteger<Types::Int32>(Identifier::Int32, items[0]);
  const int denominator = readInteger<Types::Int32>(Identifier::Int32, items[1]);
  return auto_ptr<BaseType>(new Types::Rational(numerator, denominator));
}

auto_ptr<BaseType> stringToRGBALayout(const WideString& text) {
  const Items items = splitBracedGroups(text);
  if (items.size() % 2 != 0) rejectText(L"Invalid RGBALayout value: ", text);
  auto_ptr<Types::RGBALayout> layout(new Types::RGBALayout);
  for (std::size_t i = 0; i < items.size(); i += 2) {
    const unsigned short code = extractNumber<unsigned short>(items[i]).value_or(0);
    const unsigned char depth = readInteger<Types::UInt8>(Identifier::UInt8, items[i + 1]);
    layout->set(static_cast<unsigned int>(i / 2), {static_cast<unsigned char>(code & 0xFFU), depth});
  }
  return layout;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
