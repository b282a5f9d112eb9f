#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>

#include <functional>

namespace MXF::Tessel::Tool {

/// The path of a schema that another one imports or includes: a location counts from the folder of the schema that is
/// loaded, also when it is absolute.
Templates::WideString importedPath(const Templates::WideString& loaded, const Templates::WideString& location);

/// Looks into a schema, then into those that it imports from anywhere, each once, until the action returns true.
void lookIntoWithImports(const Templates::WideString& path,
                         const std::function<bool(const xercesc::DOMDocument&)>& action);

}  // namespace MXF::Tessel::Tool
