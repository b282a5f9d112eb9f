#pragma once

#include "loading/SchemaLoading.h"

#include <string>

namespace MXF::Tessel::Tool {

/// All that is known of a dictionary as one HTML page, with its style and scripts inside: UTF-8. It asks nothing of the
/// network, and without scripts only searching, filtering and the choice of the theme are missing. The same dictionary
/// gives the same page.
/// @param title  the page's title and first heading; any text.
std::string reportPage(const LoadOutcome& outcome, const Templates::WideString& title);

}  // namespace MXF::Tessel::Tool
