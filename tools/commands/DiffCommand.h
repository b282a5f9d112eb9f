#pragma once

#include "commands/Subcommand.h"

namespace MXF::Tessel::Tool {

/// The subcommand diff: compares two dumps, and tells what breaks.
void declareDiff(CLI::App& tool, Action& action);

}  // namespace MXF::Tessel::Tool
