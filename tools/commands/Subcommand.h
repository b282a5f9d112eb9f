#pragma once

#include "commands/ExitStatus.h"
#include "commands/OutputOptions.h"

#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace MXF::Tessel::Tool {

/// What the command line asked for. It runs after all of the command line has been understood.
using Action = std::function<ExitStatus()>;

/// Declares a subcommand with its options and help below the tool. When the command line names the subcommand, its
/// action is stored in the second argument, which outlives the tool.
using DeclareSubcommand = void (*)(CLI::App& tool, Action& action);

/// What --help and the manual page say of a subcommand, beside its options. Lines are at most 100 columns long.
struct SubcommandHelp {
  const char* name;
  const char* summary;   ///< One sentence on one line.
  const char* details;   ///< Paragraphs with an empty line between them.
  const char* examples;  ///< Lines of "  mxf-metadict ...", below each what it does, indented by six blanks.
};

/// Declares a subcommand with its help and the options that every subcommand has.
/// @param formats  what --format takes, the default first.
/// @param output   filled while the command line is read; outlives the subcommand.
/// @return the subcommand, owned by the tool, for options of its own and the callback.
CLI::App& declareSubcommand(CLI::App& tool, const SubcommandHelp& help, const std::vector<std::string>& formats,
                            OutputOptions& output);

/// The heading between details and examples in the footer of a help.
inline constexpr const char* examplesHeading = "Examples:\n";

}  // namespace MXF::Tessel::Tool
