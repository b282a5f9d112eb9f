#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>

#include <functional>

namespace MXF::Tessel::Tool {

/// Looks at a document as the loader does. Does nothing when it cannot be read or is not well-formed: a failure is the
/// loader's to tell, and here only means that there is nothing to see.
void lookInto(const Templates::WideString& path, const std::function<void(const xercesc::DOMDocument&)>& action);

}  // namespace MXF::Tessel::Tool
