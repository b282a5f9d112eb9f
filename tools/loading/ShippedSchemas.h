#pragma once

#include <string>

namespace MXF::Tessel::Tool {

/// The multiplex schema of the registry flavour that is installed with the program: its path, or, when it is not found
/// there, a phrase that names it.
std::string shippedMultiplex();

}  // namespace MXF::Tessel::Tool
