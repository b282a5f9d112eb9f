#pragma once

#include "loading/SchemaLoading.h"

#include <string>

namespace MXF::Tessel::Tool {

/// Everything that was loaded, as the JSON document that docs/dump-format.md describes.
std::string dictionaryJson(const LoadRequest& request, const LoadOutcome& outcome);

}  // namespace MXF::Tessel::Tool
