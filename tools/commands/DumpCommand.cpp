#include "commands/DumpCommand.h"

#include "commands/LoadOptions.h"
#include "json/DictionaryJson.h"
#include "text/DictionaryText.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace MXF::Tessel::Tool {

namespace {

struct DumpRequest {
  LoadRequest load;
  OutputOptions output;
};

constexpr SubcommandHelp dumpHelp = {
    "dump", "Loads schemas into a dictionary and prints all of it.",
    "The files are loaded into one dictionary, in the order given, the multiplex first. A failure ends\n"
    "the run and nothing is printed, unless --keep-going is given.",
    "  mxf-metadict dump --multiplex multiplex.xsd --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      prints elements, sets and local tags for people\n"
    "  mxf-metadict dump --format json --output dictionary.json --dictionary dictionary.xsd\n"
    "      writes the elements of a schema with URN annotations for programs\n"
    "  mxf-metadict dump --keep-going --abstract-groups --dictionary dictionary.xsd \\\n"
    "                    --scheme groups.xsd --scheme more-groups.xsd\n"
    "      shows what can be loaded, abstract groups included, although some files may fail"};

ExitStatus runDump(const DumpRequest& request) {
  return withDictionary(request.load, request.output, [&](const LoadOutcome& outcome) {
    const bool asJson = request.output.format == Formats::json;
    writeResult(request.output, asJson ? dictionaryJson(request.load, outcome) : dictionaryText(outcome));
    return ExitStatus::Success;
  });
}

}  // namespace

void declareDump(CLI::App& tool, Action& action) {
  const auto request = std::make_shared<DumpRequest>();
  CLI::App& dump = declareSubcommand(tool, dumpHelp, {Formats::text, Formats::json}, request->output);
  declareFileOptions(dump, request->load);
  declareKeepGoing(dump, request->load);
  declareContentOptions(dump, request->load);
  dump.callback([request, &action] {
    requireSchemas(request->load);
    action = [request] { return runDump(*request); };
  });
}

}  // namespace MXF::Tessel::Tool
