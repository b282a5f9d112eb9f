#pragma once

#include "commands/Subcommand.h"

namespace MXF::Tessel::Tool {

/// The subcommand explain: tells all that is known of one element or set.
void declareExplain(CLI::App& tool, Action& action);

}  // namespace MXF::Tessel::Tool
