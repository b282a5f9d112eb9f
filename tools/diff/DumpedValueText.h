#pragma once

#include "json/JsonText.h"

#include <string>

namespace MXF::Tessel::Tool {

/// A value of a change as people write it: a text as it is, a set or element by its name (and namespace), a distinguished value like
/// valueText(), "none" for null.
std::u32string dumpedValueText(const Json& value);

}  // namespace MXF::Tessel::Tool
