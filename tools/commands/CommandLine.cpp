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

#include <csignal>
#include <exception>
#include <string>

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
    "Examples:\n"
    "  mxf-metadict dump --multiplex multiplex.xsd --dictionary dictionary.xsd\n"
    "      lists the elements of a dictionary schema\n"
    "  mxf-metadict explain Preface --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      tells all that is known of one set\n"
    "  mxf-metadict dump --help\n"
    "      tells everything that dump can do";

ExitStatus parseAndRun(CLI::App& tool, const Action& action, int argumentCount, const char* const* arguments) {
  try {
    tool.parse(argumentCount, arguments);
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
  tool.set_version_flag("--version", std::string(toolName) + " " TESSELMXF_VERSION, "Print the version and exit");
  tool.require_subcommand(1);
  for (const DeclareSubcommand declare : subcommands) declare(tool, action);
}

ExitStatus runTool(int argumentCount, const char* const* arguments) {
  // A file size limit shall be an error of write(), which is reported and cleaned up after, and not the end of us.
  std::signal(SIGXFSZ, SIG_IGN);  // NOLINT(cert-err33-c): can only fail for a signal that does not exist
  try {
    Action action;
    CLI::App tool("", toolName);
    declareTool(tool, action);
    return parseAndRun(tool, action, argumentCount, arguments);
  } catch (const std::exception& error) {
    reportError(error.what());
    return ExitStatus::Failure;
  }
}

}  // namespace MXF::Tessel::Tool
