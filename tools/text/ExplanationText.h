#pragma once

#include "analysis/Lookup.h"

#include <string>

namespace MXF::Tessel::Tool {

/// All that is known of what was found, or what comes near it, as a page for people (text/TextLayout.h).
std::string explanationText(const DictionaryIndex& index, const Templates::WideString& question,
                            const LookupResult& found);

}  // namespace MXF::Tessel::Tool
