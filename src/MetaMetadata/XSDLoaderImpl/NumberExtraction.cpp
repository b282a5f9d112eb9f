// Integers from text. Entry point: extractNumber(); the one place where digits are read.

#include "NumberExtraction.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace MXF::Tessel::MetaMetadata::Loading {

namespace {

constexpr std::wstring_view classicWhiteSpace = L" \t\n\v\f\r";

struct SignedMagnitude {
  bool isNegative;
  unsigned long long magnitude;
};

/// Sign and digits, or nothing when there is no digit or the magnitude exceeds 64 bits.
std::optional<SignedMagnitude> readDigits(std::wstring_view text) {
  constexpr unsigned long long limit = std::numeric_limits<unsigned long long>::max();
  SignedMagnitude number{false, 0};
  text = skipWhiteSpace(text);
  if (!text.empty() && (text.front() == L'+' || text.front() == L'-')) {
    number.isNegative = text.front() == L'-';
    text.remove_prefix(1);
  }
  const auto isDigit = [](wchar_t character) { return character >= L'0' && character <= L'9'; };
  if (text.empty() || !isDigit(text.front())) return std::nullopt;
  for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1)) {
    const auto digit = static_cast<unsigned long long>(text.front() - L'0');
    if (number.magnitude > (limit - digit) / 10) return std::nullopt;
    number.magnitude = number.magnitude * 10 + digit;
  }
  return number;
}

}  // namespace

template <class Number>
std::optional<Number> extractNumber(std::wstring_view text) {
  using Unsigned = std::make_unsigned_t<Number>;
  const auto number = readDigits(text);
  if (!number) return std::nullopt;
  constexpr auto largest = static_cast<unsigned long long>(std::numeric_limits<Number>::max());
  // A signed type reaches one further down than up.
  const unsigned long long limit = largest + (std::is_signed_v<Number> && number->isNegative ? 1 : 0);
  if (number->magnitude > limit) return std::nullopt;
  const auto magnitude = static_cast<Unsigned>(number->magnitude);
  return static_cast<Number>(number->isNegative ? static_cast<Unsigned>(0U - magnitude) : magnitude);
}

template std::optional<int> extractNumber(std::wstring_view);
template std::optional<long long> extractNumber(std::wstring_view);
template std::optional<unsigned short> extractNumber(std::wstring_view);
template std::optional<unsigned int> extractNumber(std::wstring_view);
template std::optional<unsigned long long> extractNumber(std::wstring_view);

std::wstring_view skipWhiteSpace(std::wstring_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(classicWhiteSpace), text.size()));
  return text;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
