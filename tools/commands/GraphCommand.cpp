#include "commands/GraphCommand.h"

#include "analysis/Lookup.h"
#include "commands/LoadOptions.h"
#include "graph/GraphFormats.h"
#include "output/StandardStreams.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/Unicode.h"

#include <Utils/TextConversion.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* dotFormat = "dot";
constexpr const char* mermaidFormat = "mermaid";
constexpr const char* inheritanceOnly = "inheritance";
constexpr const char* referencesOnly = "references";
constexpr std::size_t mostDepthDigits = 9;  // more steps than any dictionary has

struct GraphOptions {
  std::optional<std::string> set;
  std::size_t depth = 1;
  std::string only;
  LoadRequest load;
  OutputOptions output;
};

constexpr SubcommandHelp graphHelp = {
    "graph", "Draws how sets derive from and refer to each other.",
    "The graph is written for Graphviz, for Mermaid, or as JSON. A hollow arrow (dot) or a thick one\n"
    "(mermaid) points from a set to its base; the other arrows are references, named by their elements,\n"
    "with dashed lines for weak ones. Abstract sets have dashed borders.\n"
    "\n"
    "With --set the graph shows what the set derives from and refers to, what derives from or refers to\n"
    "it, and so on in each direction, as many steps as --depth says. A reference that the set inherits\n"
    "is drawn from the base that it comes from: one step takes in all bases and what they refer to.",
    "  mxf-metadict graph --dictionary dictionary.xsd --scheme groups.xsd | dot -Tsvg > sets.svg\n"
    "      draws all sets\n"
    "  mxf-metadict graph --set \"Material Package\" --depth 2 --format mermaid \\\n"
    "                     --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      draws two steps around one set"};

/// The name of a set, with its key when others of these have the same name.
std::string nameAmong(const std::vector<NearMiss>& all, const DictionaryIndex::Set& set) {
  const std::u32string name = nameText(set);
  const auto named =
      std::count_if(all.begin(), all.end(), [&](const NearMiss& miss) { return nameText(*miss.entry.set) == name; });
  return encode(name) + (named > 1 ? " (" + identifierText(set.key()) + ")" : "");
}

/// "A", "A or B", or "A, B or C".
template <class List, class ToText>
std::string alternatives(const List& list, const ToText& toText) {
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i) {
    text += i == 0 ? "" : i + 1 == list.size() ? " or " : ", ";
    text += toText(list[i]);
  }
  return text;
}

/// The set that a text stands for; null, and told, when there is none or more than one.
const DictionaryIndex::Set* findSet(const DictionaryIndex& index, const std::string& name) {
  const std::string quoted = '"' + name + '"';
  const Templates::WideString text = Utils::stringToWstring(name.c_str());
  const LookupResult found = lookUp(index, text, Sought::Sets);
  if (found.matches.size() == 1) return found.matches.front().set;
  if (found.matches.size() > 1) {
    reportError(std::to_string(found.matches.size()) + " sets are called " + quoted + ": give the key of one, " +
                alternatives(found.matches, [](const Entry& entry) { return identifierText(entry.set->key()); }));
    return nullptr;
  }
  std::string message = "no set is called " + quoted;
  if (!lookUp(index, text).matches.empty()) {
    reportError(message + ", but an element: 'mxf-metadict explain' tells which sets use it");
    return nullptr;
  }
  if (!found.nearMisses.empty()) {
    message += "; did you mean " +
               alternatives(found.nearMisses,
                            [&](const NearMiss& miss) { return nameAmong(found.nearMisses, *miss.entry.set); }) +
               "?";
  }
  reportError(message);
  return nullptr;
}

/// What is wrong with a text as a number of steps; empty when nothing is.
std::string checkDepth(const std::string& text) {
  const bool isNumber = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  return isNumber && text.size() <= mostDepthDigits ? "" : text + " is no number from 0 to 999999999";
}

bool hasSets(const DictionaryIndex& index, const LoadRequest& request) {
  if (!index.sets().empty()) return true;
  const bool hasSchemes = std::any_of(request.schemas.begin(), request.schemas.end(),
                                      [](const SchemaFile& file) { return file.kind == FileKind::Scheme; });
  reportError(hasSchemes ? "no sets are loaded" : "no sets are loaded: give schemas of sets with --scheme");
  return false;
}

std::string write(const DictionaryGraph& graph, const std::string& format) {
  if (format == Formats::json) return graphJson(graph);
  return format == mermaidFormat ? graphMermaid(graph) : graphDot(graph);
}

ExitStatus runGraph(const GraphOptions& options) {
  return withDictionary(options.load, options.output, [&](const LoadOutcome& outcome) {
    const DictionaryIndex index(outcome.dictionary);
    if (!hasSets(index, options.load)) return ExitStatus::Failure;
    GraphRequest request{options.only != referencesOnly, options.only != inheritanceOnly, nullptr, options.depth};
    if (options.set) {
      request.centre = findSet(index, *options.set);
      if (request.centre == nullptr) return ExitStatus::Failure;
    }
    writeResult(options.output, write(dictionaryGraph(index, request), options.output.format));
    return ExitStatus::Success;
  });
}

}  // namespace

void declareGraph(CLI::App& tool, Action& action) {
  const auto options = std::make_shared<GraphOptions>();
  options->load.abstractGroupsIfPossible = true;
  CLI::App& graph = declareSubcommand(tool, graphHelp, {dotFormat, mermaidFormat, Formats::json}, options->output);
  graph.add_option("--set", options->set, "Draw what is around this set: a name or key, as for explain")
      ->type_name("NAME");
  const CLI::Option* depth = graph.add_option("--depth", options->depth, "How many steps around it; 1 if not given")
                                 ->type_name("NUMBER")
                                 ->check(checkDepth, "");
  declareChoice(graph, "--only", options->only, {inheritanceOnly, referencesOnly}, "Leave out the other arrows");
  declareFileOptions(graph, options->load);
  declareKeepGoing(graph, options->load);
  graph.callback([options, depth, &action] {
    if (depth->count() > 0 && !options->set) throw CLI::RequiresError("--depth", "--set");
    requireSchemas(options->load);
    action = [options] { return runGraph(*options); };
  });
}

}  // namespace MXF::Tessel::Tool
