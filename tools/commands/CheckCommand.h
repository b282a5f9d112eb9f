#pragma once

#include "commands/Subcommand.h"

namespace MXF::Tessel::Tool {

/// The subcommand check: loads schemas, whichever can be loaded, and tells what is wrong with them.
void declareCheck(CLI::App& tool, Action& action);

}  // namespace MXF::Tessel::Tool
