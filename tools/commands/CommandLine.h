#pragma once

#include "commands/ExitStatus.h"
#include "commands/Subcommand.h"

namespace CLI {
class App;
}

namespace MXF::Tessel::Tool {

inline constexpr const char* toolName = "mxf-metadict";

/// Declares all that the tool understands: help, manual page and completion are made of it, too.
/// @param tool    of that name, with nothing declared yet.
/// @param action  of the subcommand that the command line names; outlives the tool.
void declareTool(CLI::App& tool, Action& action);

/// Reads the command line and does what it says. Errors go to the standard error stream.
/// @param arguments  argumentCount texts, the program's own name first.
ExitStatus runTool(int argumentCount, const char* const* arguments);

}  // namespace MXF::Tessel::Tool
