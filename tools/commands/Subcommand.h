#pragma once

#include "commands/ExitStatus.h"

#include <functional>

namespace CLI {
class App;
}

namespace MXF::Tessel::Tool {

/// What the command line asked for. It runs after all of the command line has been understood.
using Action = std::function<ExitStatus()>;

/// Declares a subcommand with its options and help below the tool. When the command line names the subcommand, its
/// action is stored in the second argument, which outlives the tool.
using DeclareSubcommand = void (*)(CLI::App& tool, Action& action);

}  // namespace MXF::Tessel::Tool
