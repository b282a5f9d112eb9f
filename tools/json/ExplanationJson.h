#pragma once

#include "analysis/Lookup.h"

#include <string>

namespace MXF::Tessel::Tool {

/// All that is known of what was found, or what comes near it, as the JSON document of docs/explain.schema.json.
std::string explanationJson(const DictionaryIndex& index, const Templates::WideString& question,
                            const LookupResult& found);

}  // namespace MXF::Tessel::Tool
