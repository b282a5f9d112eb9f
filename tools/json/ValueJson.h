#pragma once

#include "json/JsonText.h"

#include <Types/BaseType.h>

namespace MXF::Tessel::Tool {

/// A value with the number of its data type: {"dataType": 18, "value": 25}. docs/dump-format.md has the members of
/// each type.
Json valueJson(const Types::BaseType& value);

}  // namespace MXF::Tessel::Tool
