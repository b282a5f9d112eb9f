#pragma once

#include <Types/BaseType.h>

#include <string>

namespace MXF::Tessel::Tool {

/// A value as people write it: numbers, true and false, texts in quotation marks, 25/1, {0, 0}, identifiers in their
/// dotted form, RGBA layouts as components of character (or number) and depth. Printable.
std::u32string valueText(const Types::BaseType& value);

}  // namespace MXF::Tessel::Tool
