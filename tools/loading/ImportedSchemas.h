#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>

#include <functional>

namespace MXF::Tessel::Tool {

/// Looks into a schema, then into those that it imports from anywhere, each once, until the action returns true. All
/// locations count from the folder of the first one, as they do for the loader.
void lookIntoWithImports(const Templates::WideString& path,
                         const std::function<bool(const xercesc::DOMDocument&)>& action);

}  // namespace MXF::Tessel::Tool
