#include "commands/LoadOptions.h"

#include "commands/TroubleReport.h"

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

constexpr const char* noElementsText = "no element was loaded from this file or those before it [empty-dictionary]";

/// That files after one that failed were not looked at, if there are any.
void tellOfKeepGoing(const LoadRequest& request, const LoadOutcome& outcome, const TroubleReport& trouble) {
  const std::size_t files = request.schemas.size() + (request.multiplex ? 1 : 0);
  const std::size_t left = files - outcome.loads.size();
  if (left == 0) return;
  trouble.tellNote(outcome.loads.back().file.path, "Nothing is printed, and " + std::to_string(left) +
                                                       (left == 1 ? " more file was" : " more files were") +
                                                       " not looked at; --keep-going loads what can be loaded.");
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

bool isOutputRefused(const LoadRequest& request, const OutputOptions& output) {
  std::vector<std::string> inputs;
  if (request.multiplex) inputs.push_back(*request.multiplex);
  for (const SchemaFile& file : request.schemas) inputs.push_back(file.path);
  return isOutputRefused(output, inputs);
}

ExitStatus withDictionary(const LoadRequest& request, const OutputOptions& output,
                          const std::function<ExitStatus(const LoadOutcome&)>& action) {
  if (isOutputRefused(request, output)) return ExitStatus::WrongUsage;
  LoadOutcome outcome;
  TroubleReport trouble(output);
  bool isComplete = loadSchemas(request, outcome, [&](const LoadRecord& record) { trouble.tell(record); });
  const MetaMetadata::Dictionary& dictionary = outcome.dictionary;
  if (isComplete && dictionary.metaElementBegin() == dictionary.metaElementEnd()) {
    trouble.tellError(outcome.loads.back().file.path, noElementsText);
    isComplete = false;
  }
  if (!isComplete && !request.keepGoing) {
    tellOfKeepGoing(request, outcome, trouble);
    return ExitStatus::Failure;
  }
  const ExitStatus status = action(outcome);
  return status == ExitStatus::Success && !isComplete ? ExitStatus::Failure : status;
}

}  // namespace MXF::Tessel::Tool
