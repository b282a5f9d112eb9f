#include "commands/ExplainCommand.h"

#include "analysis/Lookup.h"
#include "commands/LoadOptions.h"
#include "json/ExplanationJson.h"
#include "text/ExplanationText.h"

#include <Utils/TextConversion.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace MXF::Tessel::Tool {

namespace {

struct ExplainRequest {
  std::string question;
  LoadRequest load;
  OutputOptions output;
};

constexpr SubcommandHelp explainHelp = {
    "explain", "Tells all that the schemas say of one element or set.",
    "What to explain is given as a label or key, a local tag, a name, or an XML name. When nothing is\n"
    "called that, the exit status is 1 and what comes near it is listed: other version bytes, 7F as any\n"
    "byte, other case, similar spelling, names and labels that hold it, and what fits a pattern such as\n"
    "\"*Track*\".",
    "  mxf-metadict explain \"Material Package\" --multiplex multiplex.xsd \\\n"
    "                       --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      tells the bases of a set, its attributes, and what refers to it\n"
    "  mxf-metadict explain 3C.0A --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      tells which element a local tag stands for, its type, and which sets use it"};

ExitStatus runExplain(const ExplainRequest& request) {
  return withDictionary(request.load, request.output, [&](const LoadOutcome& outcome) {
    const Templates::WideString question = Utils::stringToWstring(request.question.c_str());
    const DictionaryIndex index(outcome.dictionary);
    const LookupResult found = lookUp(index, question);
    const bool asJson = request.output.format == Formats::json;
    writeResult(request.output,
                asJson ? explanationJson(index, question, found) : explanationText(index, question, found));
    return found.matches.empty() ? ExitStatus::Failure : ExitStatus::Success;
  });
}

/// What is wrong with what is asked for; empty when nothing is.
std::string checkQuestion(const std::string& question) {
  return question.find_first_not_of(" \t\r\n") == std::string::npos ? "nothing to explain: what is given is empty" : "";
}

}  // namespace

void declareExplain(CLI::App& tool, Action& action) {
  const auto request = std::make_shared<ExplainRequest>();
  request->load.abstractGroupsIfPossible = true;
  request->load.documentation = true;
  request->load.lengthDescription = true;
  CLI::App& explain = declareSubcommand(tool, explainHelp, {Formats::text, Formats::json}, request->output);
  explain.add_option("WHAT", request->question, "Label, key, local tag or name to explain")
      ->required()
      ->type_name("")
      ->check(checkQuestion);
  declareFileOptions(explain, request->load);
  declareKeepGoing(explain, request->load);
  explain.callback([request, &action] {
    requireSchemas(request->load);
    action = [request] { return runExplain(*request); };
  });
}

}  // namespace MXF::Tessel::Tool
