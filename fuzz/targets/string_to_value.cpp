// stringToValue() of an input that is two characters, the data type and the type of the items, counted from '0', and
// the text.

#include "MetaMetadata/XSDLoaderImpl/ValueParsing.h"
#include "support/Contract.h"
#include "support/Documents.h"
#include "support/ValueTexts.h"

#include <DataIO/DataSink.h>
#include <Exceptions/Exceptions.h>
#include <Types/Types.h>

#include <loader/support/DictionaryDump.h>

using namespace MXF::Tessel;
using Types::Identifiers::Identifier;

namespace {

struct TypedInput {
  Identifier dataType;
  Identifier subType;
  Templates::WideString text;
};

Templates::auto_ptr<Types::BaseType> read(const TypedInput& input) {
  return MetaMetadata::Loading::stringToValue(input.dataType, input.subType, input.text);
}

void checkRoundTrip(const TypedInput& input, const Types::BaseType& value) {
  const auto text = Fuzz::textOf(value);
  if (!text) return;
  const auto again = read({input.dataType, input.subType, *text});
  Fuzz::require(again && Test::dump(*again) == Test::dump(value), "a value is read back from its own text");
}

/// Only a text can be too long for the wire, and the items of a collection of unlike lengths.
void checkWireForm(const Types::BaseType& value) {
  DataIO::BufferSink sink;
  const bool isWritten = Fuzz::succeeds<Exceptions::InvalidValue>([&] { value.serialize(sink); });
  Fuzz::require(isWritten || sink.bytes().empty(), "nothing is written of a value without wire form");
  const auto* collection = dynamic_cast<const Types::Collection*>(&value);
  if (isWritten && collection != nullptr) {
    Fuzz::require(sink.bytes().size() == collection->serializedSize(), "a collection says how many bytes it writes");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const auto typeAt = [data](std::size_t position) { return static_cast<Identifier>(data[position] - '0'); };
  const TypedInput input{typeAt(0), typeAt(1), Fuzz::wideInput(Fuzz::inputText(data + 2, size - 2))};

  Templates::auto_ptr<Types::BaseType> value;
  const bool isRead =
      Fuzz::succeeds<Exceptions::InvalidValue, Exceptions::InvalidULDesignator, Exceptions::TypeNotSupportedException>(
          [&] { value = read(input); });
  Fuzz::require(isRead || value == nullptr, "a text that is rejected gives no value");
  if (value == nullptr) return 0;
  checkRoundTrip(input, *value);
  checkWireForm(*value);
  return 0;
}
