#pragma once

#include "commands/Subcommand.h"

namespace MXF::Tessel::Tool {

/// The subcommand dump: loads schemas into a dictionary and prints all of it.
void declareDump(CLI::App& tool, Action& action);

}  // namespace MXF::Tessel::Tool
