#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>

/// Text conversions of the library. A wide string holds one UTF-16 code unit per character, whatever the width of the
/// platform's wchar_t: lengths and orders are those of code units everywhere. All functions are thread-safe and do not
/// depend on the process locale.
namespace MXF::Tessel::Utils {

/// UTF-8 to UTF-16 code units. A byte that is no part of well-formed UTF-8 becomes the lone surrogate DC00 hex plus the
/// byte, so that every byte sequence (a file name, say) survives the way to a wide string and back.
/// @param text  zero-terminated; null counts as empty.
TESSELMXF_MODEL_API Templates::WideString stringToWstring(const char* text);

/// UTF-16 code units to UTF-8, the reverse of stringToWstring. A lone surrogate DC80 to DCFF hex gives back its byte;
/// any other lone surrogate becomes U+FFFD. A character above FFFF hex counts as the code point it is.
/// @param text  zero-terminated; null counts as empty.
TESSELMXF_MODEL_API Templates::NarrowString wstringToString(const wchar_t* text);

/// The same text with each character above FFFF hex split into its surrogate pair, and one above 10FFFF hex replaced by
/// U+FFFD.
/// @param text  zero-terminated; null counts as empty.
TESSELMXF_MODEL_API Templates::WideString toCodeUnits(const wchar_t* text);

/// The number in decimal digits, after a minus sign if it is negative.
TESSELMXF_MODEL_API Templates::WideString toDecimal(long long number);

}  // namespace MXF::Tessel::Utils
