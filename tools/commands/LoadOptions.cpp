#include "commands/LoadOptions.h"

#include "output/StandardStreams.h"

#include <CLI/CLI.hpp>

#include <string>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* schemaGroup = "Schemas";

/// Adds an option that may be given many times. The files of all such options end up in one list, in the order of the
/// command line, which is the order they are loaded in.
void declareSchemaOption(CLI::App& subcommand, LoadRequest& request, FileKind kind, const char* help) {
  const auto append = [&request, kind](const std::string& path) { request.schemas.push_back({kind, path}); };
  subcommand.add_option_function<std::string>(std::string("--") + fileKindName(kind), append, help)
      ->type_name("FILE")
      ->trigger_on_parse()
      ->group(schemaGroup);
}

void declareSwitch(CLI::App& subcommand, const char* name, bool& value, const char* help) {
  subcommand.add_flag(name, value, help)->group(schemaGroup);
}

}  // namespace

void declareFileOptions(CLI::App& subcommand, LoadRequest& request) {
  subcommand
      .add_option("--multiplex", request.multiplex,
                  "Multiplex schema, loaded first: its namespace tells how the other\nschemas are annotated")
      ->type_name("FILE")
      ->group(schemaGroup);
  declareSchemaOption(subcommand, request, FileKind::Dictionary, "Schema of elements; may be given many times");
  declareSchemaOption(subcommand, request, FileKind::Scheme, "Schema of sets; may be given many times");
}

void declareKeepGoing(CLI::App& subcommand, LoadRequest& request) {
  declareSwitch(subcommand, "--keep-going", request.keepGoing, "Load the remaining files after one has failed");
}

void declareContentOptions(CLI::App& subcommand, LoadRequest& request) {
  declareSwitch(subcommand, "--abstract-groups", request.abstractGroups, "Load abstract groups as sets, too");
  declareSwitch(subcommand, "--documentation", request.documentation, "Load the documentation of elements and sets");
  declareSwitch(subcommand, "--length-description", request.lengthDescription,
                "Load the length descriptions of elements");
}

void requireSchemas(const LoadRequest& request) {
  if (request.schemas.empty()) throw CLI::RequiredError("--dictionary or --scheme");
}

ExitStatus withDictionary(const LoadRequest& request, const OutputOptions& output,
                          const std::function<ExitStatus(const LoadOutcome&)>& action) {
  LoadOutcome outcome;
  const LoadResult result = loadSchemas(request, outcome, [&](const LoadRecord& record) {
    if (record.failure) reportLine(failureLine(record.file.path, *record.failure));
    if (record.advice && !output.quiet) reportLine(adviceLine(record));
  });
  if (result == LoadResult::Failed && !request.keepGoing) return ExitStatus::Failure;
  const ExitStatus status = action(outcome);
  return status == ExitStatus::Success && result != LoadResult::Complete ? ExitStatus::Failure : status;
}

}  // namespace MXF::Tessel::Tool
