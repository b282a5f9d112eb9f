#include "commands/LoadOptions.h"

#include <CLI/CLI.hpp>

#include <string>

namespace MXF::Tessel::Tool {

namespace {

/// Adds an option that may be given many times. The files of all such options end up in one list, in the order of the
/// command line, which is the order they are loaded in.
void declareSchemaOption(CLI::App& subcommand, LoadRequest& request, FileKind kind, const char* help) {
  const auto append = [&request, kind](const std::string& path) { request.schemas.push_back({kind, path}); };
  subcommand.add_option_function<std::string>(std::string("--") + fileKindName(kind), append, help)
      ->type_name("FILE")
      ->trigger_on_parse();
}

}  // namespace

void declareLoadOptions(CLI::App& subcommand, LoadRequest& request) {
  subcommand
      .add_option("--multiplex", request.multiplex,
                  "Multiplex schema, loaded first: its namespace tells how the other\nschemas are annotated")
      ->type_name("FILE");
  declareSchemaOption(subcommand, request, FileKind::Dictionary, "Schema of elements; may be given many times");
  declareSchemaOption(subcommand, request, FileKind::Scheme, "Schema of sets; may be given many times");
  subcommand.add_flag("--abstract-groups", request.abstractGroups, "Load abstract groups as sets, too");
  subcommand.add_flag("--documentation", request.documentation, "Load the documentation of elements and sets");
  subcommand.add_flag("--length-description", request.lengthDescription, "Load the length descriptions of elements");
  subcommand.add_flag("--keep-going", request.keepGoing, "Load the remaining files after one has failed");
}

void requireSchemas(const LoadRequest& request) {
  if (request.schemas.empty()) throw CLI::RequiredError("--dictionary or --scheme");
}

}  // namespace MXF::Tessel::Tool
