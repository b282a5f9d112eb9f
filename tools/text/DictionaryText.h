#pragma once

#include "loading/SchemaLoading.h"

#include <string>

namespace MXF::Tessel::Tool {

/// Everything that was loaded, for people: UTF-8, no line longer than pageWidth columns. Loads, elements, sets, local
/// tags, and at the end the references to sets that no schema declared.
std::string dictionaryText(const LoadOutcome& outcome);

}  // namespace MXF::Tessel::Tool
