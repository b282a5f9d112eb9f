// Everything of the model that is made from text, of an input that is the text.

#include "support/Contract.h"
#include "support/Documents.h"

#include <Exceptions/Exceptions.h>
#include <KLV/Key.h>
#include <MetaMetadata/AttributeRequiredStatus.h>
#include <Types/Types.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

using namespace MXF::Tessel;
using Templates::WideString;

namespace {

constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;

WideString lowerCase(WideString text) {
  const auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; };
  std::transform(text.begin(), text.end(), text.begin(), lower);
  return text;
}

/// An identifier that is bytes: read, written, and read back in either case.
template <class Value, class Rejection>
void checkBytes(const WideString& text, const wchar_t* rejection) {
  std::optional<Value> value;
  try {
    value.emplace(text.c_str(), textForm);
  } catch (const Rejection& e) {
    Fuzz::require(e.message() == rejection + text, "the message ends with the text that is rejected");
    return;
  }
  const WideString written = value->toString(textForm);
  Fuzz::require(Value(written.c_str(), textForm).toString(textForm) == written &&
                    Value(lowerCase(written).c_str(), textForm).toString(textForm) == written,
                "bytes are read back from their text");
}

void checkRequiredStatus(const WideString& text) {
  const auto& words = MetaMetadata::AttributeRequiredStatus::instance();
  Fuzz::succeeds<Exceptions::InvalidValue>([&] {
    Fuzz::require(words.toString(words.fromString(text.c_str())) == text, "a status is written as it is read");
  });
}

void checkTypeName(const WideString& text) {
  const auto type = Types::Identifiers::stringToIdentifier(text.c_str());
  const bool isUnknown = type == Types::Identifiers::Identifier::Unknown;
  Fuzz::require(isUnknown == (identifierToString(type) == WideString(L"Unknown")), "each known type has a name");
}

void checkStrings(const std::string& bytes, const WideString& text) {
  const Templates::NarrowString narrow = Utils::wstringToString(text.c_str());
  Fuzz::require(narrow == Templates::NarrowString(bytes.begin(), bytes.end()), "any bytes survive as code units");
  Fuzz::require(Utils::toCodeUnits(text.c_str()) == text, "code units stay as they are");
  Fuzz::require(Types::UTF16String(text.c_str()).value() == text, "a text keeps its code units");
  const bool is7Bit = std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
  const bool isTaken = Fuzz::succeeds<Exceptions::InvalidValue>(
      [&] { Fuzz::require(Types::ISO7String(bytes.c_str()).value() == bytes, "a 7-bit text keeps its characters"); });
  Fuzz::require(isTaken == is7Bit, "a 7-bit text is one, and no other");
}

/// Characters of any width, not only code units: three bytes each.
WideString wideCharacters(std::string_view input) {
  WideString text;
  for (; input.size() >= 3; input.remove_prefix(3)) {
    const auto byteAt = [input](std::size_t position) { return static_cast<unsigned char>(input[position]); };
    text += static_cast<wchar_t>(byteAt(0) << 16U | byteAt(1) << 8U | byteAt(2));
  }
  return text;
}

void checkWideCharacters(const WideString& text) {
  for (const wchar_t character : text) {
    const bool isUnit = Fuzz::succeeds<Exceptions::InvalidValue>(
        [character] { Fuzz::require(Types::UTF16(character).value() == character, "a code unit is kept"); });
    Fuzz::require(isUnit == (character <= L'\xFFFF'), "a code unit is one, and nothing wider");
  }
  const WideString units = Utils::toCodeUnits(text.c_str());
  const bool areUnits = std::all_of(units.begin(), units.end(), [](wchar_t unit) { return unit <= L'\xFFFF'; });
  Fuzz::require(areUnits, "a wide text becomes code units");
  static_cast<void>(Utils::wstringToString(text.c_str()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = Fuzz::inputText(data, size);
  const std::string bytes(input.substr(0, input.find('\0')));  // all take zero-terminated texts
  const WideString text = Utils::stringToWstring(bytes.c_str());
  checkBytes<KLV::Key, Exceptions::InvalidULDesignator>(text, L"");
  checkBytes<Types::UniversalLabel, Exceptions::InvalidULDesignator>(text, L"");
  checkBytes<Types::UUID, Exceptions::InvalidValue>(text, L"Invalid UUID: ");
  checkBytes<Types::UMID32, Exceptions::InvalidValue>(text, L"Invalid UMID: ");
  checkBytes<Types::UMID64, Exceptions::InvalidValue>(text, L"Invalid UMID: ");
  checkBytes<Types::LocalTag, Exceptions::InvalidValue>(text, L"Invalid local tag: ");
  checkRequiredStatus(text);
  checkTypeName(text);
  checkStrings(bytes, text);
  checkWideCharacters(wideCharacters(input));
  return 0;
}
