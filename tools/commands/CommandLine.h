#pragma once

#include "commands/ExitStatus.h"

namespace MXF::Tessel::Tool {

/// Reads the command line and does what it says. Errors go to the standard error stream.
/// @param arguments  argumentCount texts, the program's own name first.
ExitStatus runTool(int argumentCount, const char* const* arguments);

}  // namespace MXF::Tessel::Tool
