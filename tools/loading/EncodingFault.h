#pragma once

#include "loading/Explanation.h"

#include <Templates/Containers.h>

namespace MXF::Tessel::Tool {

/// Looks for what an XML parser cannot tell well: a file that is empty or no XML at all, or that is not in the encoding
/// that it declares. The parser decodes ahead of what it parses, so that the place of its message is another.
/// @return what to do, and the place of the first bytes that are not UTF-8; empty when the bytes are in order.
Explanation explainBytes(const Templates::WideString& path);

}  // namespace MXF::Tessel::Tool
