#pragma once

#include "commands/Subcommand.h"

namespace MXF::Tessel::Tool {

/// The subcommand report: writes a dictionary as one page to read in a browser.
void declareReport(CLI::App& tool, Action& action);

}  // namespace MXF::Tessel::Tool
