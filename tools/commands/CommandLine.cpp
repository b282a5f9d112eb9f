// The tool as a whole: its subcommands, --help and --version, and what wrong usage and unexpected errors lead to.
// Entry point: runTool(). A further subcommand is one more row of the table below.

#include "commands/CommandLine.h"

#include "commands/CheckCommand.h"
#include "commands/DiffCommand.h"
#include "commands/DumpCommand.h"
#include "commands/ExplainCommand.h"
#include "commands/GraphCommand.h"
#include "commands/ReportCommand.h"
#include "commands/WrongUsage.h"
#include "output/StandardStreams.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <exception>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

namespace {

constexpr DeclareSubcommand subcommands[] = {declareDump,  declareCheck,  declareExplain,
                                             declareGraph, declareReport, declareDiff};

constexpr const char* description = "Reads MXF meta-dictionaries from annotated XML Schema documents (SMPTE ST 434).";
constexpr const char* footer =
    "Exit status: 0 on success; 1 when a file failed to load or is not what it was given as, when a check\n"
    "found errors, when what was asked for is not there, or when the output could not be written; 2 for\n"
    "wrong usage. Of diff: 1 when a change breaks, 2 when there is no result.\n"
    "\n"
    "'mxf-metadict help COMMAND' is another way to write 'mxf-metadict COMMAND --help'.\n"
    "\n"
    "Environment: Without --color, text on a terminal is in colour, unless NO_COLOR is set to some text\n"
    "or TERM to dumb.\n"
    "\n"
    "Examples:\n"
    "  mxf-metadict dump --multiplex multiplex.xsd --dictionary dictionary.xsd\n"
    "      lists the elements of a dictionary schema\n"
    "  mxf-metadict explain Preface --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      tells all that is known of one set\n"
    "  mxf-metadict dump --help\n"
    "      tells everything that dump can do";

class HelpFormatter final : public CLI::Formatter {
 public:
  HelpFormatter() { label("SUBCOMMAND", "COMMAND"); }

  std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override {
    // Options and footer are each set off by an empty line.
    return CLI::detail::find_and_replace(CLI::Formatter::make_help(app, std::move(name), mode), "\n\n\n", "\n\n");
  }
};

/// The words that people try where a program has commands, as what they stand for.
std::vector<std::string> withoutSynonyms(const CLI::App& tool, std::vector<std::string> arguments) {
  if (arguments.empty()) return arguments;
  const auto isNamed = [&](const CLI::App* command) { return command->get_name() == arguments.front(); };
  if (arguments.front() == "version") arguments.front() = "--version";
  if (arguments.front() == "help") {
    const bool isSurplus = arguments.size() > 2 && arguments[2].rfind('-', 0) != 0;
    if (isSurplus) return arguments;  // help takes one command
    arguments.erase(arguments.begin());
    if (arguments.empty() || !tool.get_subcommands(isNamed).empty()) arguments.emplace_back("--help");
  }
  return arguments;
}

ExitStatus parseAndRun(CLI::App& tool, const Action& action, const std::vector<std::string>& arguments) {
  // Before the parser, which takes the next option for the value.
  const std::vector<std::string> missing = missingValueLines(tool, arguments);
  for (const std::string& line : missing) reportError(line);
  if (!missing.empty()) return ExitStatus::WrongUsage;
  try {
    tool.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));  // it takes them from the end
  } catch (const CLI::CallForHelp&) {
    writeStandardOutput(tool.help());
    return ExitStatus::Success;
  } catch (const CLI::CallForVersion& version) {
    writeStandardOutput(std::string(version.what()) + '\n');
    return ExitStatus::Success;
  } catch (const CLI::ParseError& error) {
    for (const std::string& line : wrongUsageLines(tool, error)) reportError(line);
    return ExitStatus::WrongUsage;
  }
  return action();
}

}  // namespace

void declareTool(CLI::App& tool, Action& action) {
  tool.description(description);
  tool.footer(footer);
  tool.set_help_flag("-h,--help", "Print this help and exit");
  tool.set_version_flag("-v,--version", std::string(toolName) + " " TESSELMXF_VERSION, "Print the version and exit");
  tool.require_subcommand(1);
  tool.formatter(std::make_shared<HelpFormatter>());
  for (const DeclareSubcommand declare : subcommands) declare(tool, action);
}

ExitStatus runTool(int argumentCount, const char* const* arguments) {
  // A file size limit shall be an error of write(), which is reported and cleaned up after, and not the end of us.
  std::signal(SIGXFSZ, SIG_IGN);  // NOLINT(cert-err33-c): can only fail for a signal that does not exist
  try {
    Action action;
    CLI::App tool("", toolName);
    declareTool(tool, action);
    return parseAndRun(tool, action,
                       withoutSynonyms(tool, {arguments + std::min(argumentCount, 1), arguments + argumentCount}));
  } catch (const std::exception& error) {
    reportError(error.what());
    return ExitStatus::Failure;
  }
}

}  // namespace MXF::Tessel::Tool
