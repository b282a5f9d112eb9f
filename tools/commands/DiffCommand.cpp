#include "commands/DiffCommand.h"

#include "diff/DifferenceJson.h"
#include "diff/DifferenceText.h"
#include "diff/DumpReading.h"
#include "output/StandardStreams.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <system_error>

namespace MXF::Tessel::Tool {

namespace {

struct DiffRequest {
  std::string before;
  std::string after;
  OutputOptions output;
};

constexpr const char* diffDetails =
    "OLD and NEW are files that 'mxf-metadict dump --format json' wrote, both with the same options.\n"
    "When only one was made with --abstract-groups, they are not compared.\n"
    "Elements are matched by label, sets by key, attributes by set and element.\n"
    "\n"
    "A change breaks when a file or XML document that is valid by OLD may be invalid, or have another\n"
    "meaning, by NEW. The exit status is 1 when there is such a change, 0 when there is none, and 2 when\n"
    "the dumps could not be compared or the result could not be written.\n"
    "\n"
    "Kinds of changes:\n\n";

constexpr const char* diffExamples =
    "  mxf-metadict diff old.json new.json\n"
    "      tells what changed between two dumps\n"
    "  mxf-metadict diff --quiet --format json --output changes.json old.json new.json\n"
    "      writes the changes for a program, which reads from the exit status whether any breaks";

/// @return nothing, after telling why, when the file is no dump.
std::optional<DictionaryDump> readOrReport(const std::string& path, const OutputOptions& output) {
  try {
    return readDump(path);
  } catch (const NoDump& fault) {
    reportLine(fault.what());
    if (!output.quiet) reportLine(fault.advice);
    return std::nullopt;
  }
}

/// Whether the dumps go together; if not, that is told.
bool areComparable(const DictionaryDump& before, const DictionaryDump& after) {
  const std::optional<std::string> reason = whyNotComparable(before, after);
  if (reason) reportLine(*reason);
  return !reason;
}

ExitStatus compare(const DiffRequest& request, const DictionaryDump& before, const DictionaryDump& after) {
  if (!request.output.quiet) {
    for (const std::string& warning : comparisonWarnings(before, after)) reportLine(warning);
  }
  const std::vector<Change> changes = compareDictionaries(before, after);
  const bool asJson = request.output.format == Formats::json;
  writeResult(request.output, asJson ? differenceJson(before, after, changes)
                                     : differenceText(before, after, changes, !request.output.quiet));
  return countChanges(changes).breaking > 0 ? ExitStatus::Failure : ExitStatus::Success;
}

ExitStatus runDiff(const DiffRequest& request) {
  try {
    if (isOutputRefused(request.output, {request.before, request.after})) return ExitStatus::WrongUsage;
    const std::optional<DictionaryDump> before = readOrReport(request.before, request.output);
    const std::optional<DictionaryDump> after = readOrReport(request.after, request.output);
    if (!before || !after || !areComparable(*before, *after)) return ExitStatus::WrongUsage;
    return compare(request, *before, *after);
  } catch (const std::exception& error) {
    reportError(error.what());
    return ExitStatus::WrongUsage;  // and not the status that says that something breaks
  }
}

}  // namespace

void declareDiff(CLI::App& tool, Action& action) {
  const auto request = std::make_shared<DiffRequest>();
  const std::string text = diffDetails + changeRuleLines();
  const SubcommandHelp help = {"diff", "Compares two dumps of dictionaries, and tells which changes break.",
                               text.c_str(), diffExamples};
  CLI::App& diff = declareSubcommand(tool, help, {Formats::text, Formats::json}, request->output);
  diff.add_option("OLD", request->before, "JSON dump of the dictionary as it was")->required()->type_name("");
  diff.add_option("NEW", request->after, "JSON dump of the dictionary as it is")->required()->type_name("");
  diff.callback([request, &action] { action = [request] { return runDiff(*request); }; });
}

}  // namespace MXF::Tessel::Tool
