#pragma once

#include "check/DeclarationScan.h"

#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::Tool {

/// Adds what there is to know of the annotations of all declarations of a document.
void scanAnnotations(const xercesc::DOMElement& schema, const Annotations& annotations, DeclarationScan& scan);

}  // namespace MXF::Tessel::Tool
