#include "commands/Subcommand.h"

#include <CLI/CLI.hpp>

namespace MXF::Tessel::Tool {

CLI::App& declareSubcommand(CLI::App& tool, const SubcommandHelp& help, const std::vector<std::string>& formats,
                            OutputOptions& output) {
  CLI::App& subcommand = *tool.add_subcommand(help.name, help.summary);
  subcommand.group("Commands");
  subcommand.footer(std::string(help.details) + "\n\n" + examplesHeading + help.examples);
  declareOutputOptions(subcommand, formats, output);
  return subcommand;
}

}  // namespace MXF::Tessel::Tool
