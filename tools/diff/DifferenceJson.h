#pragma once

#include "diff/DictionaryComparison.h"

#include <string>

namespace MXF::Tessel::Tool {

/// The changes as the JSON document of docs/diff.schema.json.
std::string differenceJson(const DictionaryDump& before, const DictionaryDump& after,
                           const std::vector<Change>& changes);

}  // namespace MXF::Tessel::Tool
