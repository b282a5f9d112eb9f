#pragma once

#include <optional>
#include <string_view>

/// Integers from text as a wide input stream in its initial state extracts them: white space is skipped, one sign is
/// taken, then decimal digits up to the first other character; the rest is ignored. White space and digits are those of
/// the classic locale, whatever locale the process has set.
namespace MXF::Tessel::MetaMetadata::Loading {

/// @return the number, or nothing when the text yields none or it does not fit. For an unsigned type a minus sign is
///         accepted: the magnitude must fit, and its negation modulo 2 to the power of the width is the number.
template <class Number>
std::optional<Number> extractNumber(std::wstring_view text);

extern template std::optional<int> extractNumber(std::wstring_view);
extern template std::optional<long long> extractNumber(std::wstring_view);
extern template std::optional<unsigned short> extractNumber(std::wstring_view);
extern template std::optional<unsigned int> extractNumber(std::wstring_view);
extern template std::optional<unsigned long long> extractNumber(std::wstring_view);

/// The text from its first character that is not white space on.
std::wstring_view skipWhiteSpace(std::wstring_view text);

}  // namespace MXF::Tessel::MetaMetadata::Loading
