#pragma once

#include "commands/Subcommand.h"

namespace MXF::Tessel::Tool {

/// The subcommand graph: draws how sets derive from and refer to each other.
void declareGraph(CLI::App& tool, Action& action);

}  // namespace MXF::Tessel::Tool
