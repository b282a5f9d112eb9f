#include "commands/DumpCommand.h"

#include "commands/LoadOptions.h"
#include "json/DictionaryJson.h"
#include "loading/SchemaLoading.h"
#include "output/OutputFile.h"
#include "output/StandardStreams.h"
#include "text/DictionaryText.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* textFormat = "text";
constexpr const char* jsonFormat = "json";

struct DumpRequest {
  LoadRequest load;
  std::string format = textFormat;
  std::optional<std::string> output;
};

constexpr const char* footer =
    "The files are loaded into one dictionary, in the order given, the multiplex first. A failure ends\n"
    "the run and nothing is printed, unless --keep-going is given.\n"
    "\n"
    "Examples:\n"
    "  mxf-metadict dump --multiplex multiplex.xsd --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      prints elements, sets and local tags for people\n"
    "  mxf-metadict dump --format json --output dictionary.json --dictionary dictionary.xsd\n"
    "      writes the elements of a schema with URN annotations for programs\n"
    "  mxf-metadict dump --keep-going --abstract-groups --dictionary dictionary.xsd \\\n"
    "                    --scheme groups.xsd --scheme more-groups.xsd\n"
    "      shows what can be loaded, abstract groups included, although some files may fail";

ExitStatus runDump(const DumpRequest& request) {
  LoadOutcome outcome;
  const bool complete = loadSchemas(request.load, outcome, reportLoadFailure);
  if (!complete && !request.load.keepGoing) return ExitStatus::Failure;

  const std::string text = request.format == jsonFormat ? dictionaryJson(outcome) : dictionaryText(outcome);
  if (request.output) {
    replaceFile(*request.output, text);
  } else {
    writeStandardOutput(text);
  }
  return complete ? ExitStatus::Success : ExitStatus::Failure;
}

}  // namespace

void declareDump(CLI::App& tool, Action& action) {
  const auto request = std::make_shared<DumpRequest>();
  CLI::App& dump = *tool.add_subcommand("dump", "Loads schemas into a dictionary and prints all of it.");
  dump.footer(footer);
  dump.add_option("--format", request->format, "Text for people, or JSON for programs; text if not given")
      ->type_name("text|json")
      ->check(CLI::IsMember({textFormat, jsonFormat}).description(""));
  dump.add_option("--output", request->output, "Write to this file, whole or not at all, not to the standard output")
      ->type_name("FILE");
  declareLoadOptions(dump, request->load);
  dump.callback([request, &action] {
    requireSchemas(request->load);
    action = [request] { return runDump(*request); };
  });
}

}  // namespace MXF::Tessel::Tool
