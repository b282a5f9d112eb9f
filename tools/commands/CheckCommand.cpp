#include "commands/CheckCommand.h"

#include "check/Check.h"
#include "commands/LoadOptions.h"
#include "json/FindingsJson.h"
#include "json/FindingsSarif.h"
#include "text/FindingsText.h"
#include "text/Similarity.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* sarifFormat = "sarif";

struct CheckRequest {
  LoadRequest load;
  OutputOptions output;
  RuleSelection rules;
  bool isStrict = false;
};

constexpr const char* checkDetails =
    "All files are loaded, those after one that fails included, and what was loaded is examined for\n"
    "what is missing, clashes or was lost. Each finding has its place, what it clashes with, and what to\n"
    "do. The exit status is 1 when there are errors. SARIF is what editors and code hosts read.\n"
    "\n"
    "Give all schemas of a dictionary together: what only others declare counts as missing. The\n"
    "abstract groups of a scheme are loaded if all of them have keys.\n"
    "\n"
    "Rules:\n";

constexpr const char* checkExamples =
    "  mxf-metadict check --multiplex multiplex.xsd --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      lists what is wrong or doubtful\n"
    "  mxf-metadict check --strict --disable unused-element --format sarif --output check.sarif \\\n"
    "                     --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      writes a report for an automatic build, which warnings fail as well";

std::string ruleLines() {
  std::size_t width = 0;
  for (const Rule& rule : allRules()) width = std::max(width, std::string(rule.id).size());
  std::string lines;
  for (const Rule& rule : allRules()) {
    std::string id = rule.id;
    std::string severity = severityName(rule.severity);
    id.resize(width, ' ');
    severity.resize(std::string("warning").size(), ' ');
    lines.append(lines.empty() ? "  " : "\n  ")
        .append(id)
        .append("  ")
        .append(severity)
        .append("  ")
        .append(rule.summary);
  }
  return lines;
}

/// What is wrong with the id of a rule; empty when there is one with that id.
std::string checkRuleId(const std::string& id) {
  if (findRule(id) != nullptr) return "";
  std::vector<std::string> ids;
  for (const Rule& rule : allRules()) ids.emplace_back(rule.id);
  const std::vector<std::string> near = nearest(id, ids);
  return "no such rule: " + id + (near.empty() ? "" : "; did you mean " + CLI::detail::join(near, " or ") + "?");
}

/// The same of a rule that is to be turned off.
std::string checkDisabledId(const std::string& id) {
  const Rule* rule = findRule(id);
  if (rule == nullptr) return checkRuleId(id);
  return rule->scope == Scope::Failures ? "a file that was not loaded is always told: " + id : "";
}

void declareRuleOption(CLI::App& subcommand, const char* name, std::vector<std::string>& ids, const char* help,
                       std::string (*checkId)(const std::string& id)) {
  const auto append = [&ids](const std::string& id) { ids.push_back(id); };
  subcommand.add_option_function<std::string>(name, append, help)
      ->type_name("RULE")
      ->trigger_on_parse()
      ->check(checkId);
}

std::string write(const CheckResult& result, const CheckRequest& request) {
  const OutputOptions& output = request.output;
  if (output.format == Formats::json) return findingsJson(result);
  if (output.format == sarifFormat) return findingsSarif(result);
  FindingsForm form;
  form.isWrapped = isForTerminal(output);
  form.withSummary = !output.quiet;
  if (output.quiet) form.least = request.isStrict ? Severity::Warning : Severity::Error;
  return findingsText(result, form);
}

ExitStatus runCheck(const CheckRequest& request) {
  if (isOutputRefused(request.load, request.output)) return ExitStatus::WrongUsage;
  LoadOutcome outcome;
  loadSchemas(request.load, outcome, [](const LoadRecord& /*record*/) {});  // what went wrong is among the findings
  const CheckResult result = check(outcome, request.rules);
  writeResult(request.output, write(result, request));
  const bool hasWarnings = result.count(Severity::Warning) > 0;
  const bool fails = result.count(Severity::Error) > 0 || (request.isStrict && hasWarnings);
  return fails ? ExitStatus::Failure : ExitStatus::Success;
}

}  // namespace

void declareCheck(CLI::App& tool, Action& action) {
  const auto request = std::make_shared<CheckRequest>();
  request->load.keepGoing = true;
  request->load.abstractGroupsIfPossible = true;
  const std::string text = checkDetails + ruleLines();
  const SubcommandHelp help = {"check", "Examines schemas for what is missing, clashes or was lost.", text.c_str(),
                               checkExamples};
  CLI::App& subcommand = declareSubcommand(tool, help, {Formats::text, Formats::json, sarifFormat}, request->output);
  subcommand.get_option("--quiet")->description(
      "Only errors, with --strict also warnings, in text: no notes,\nno summary");
  declareRuleOption(subcommand, "--rule", request->rules.only,
                    "Apply this rule only, beside those about loading;\nmay be given many times", checkRuleId);
  declareRuleOption(subcommand, "--disable", request->rules.disabled, "Do not apply this rule; may be given many times",
                    checkDisabledId);
  subcommand.add_flag("--strict", request->isStrict, "Exit with status 1 when there are warnings, too");
  declareFileOptions(subcommand, request->load);
  subcommand.callback([request, &action] {
    requireSchemas(request->load);
    action = [request] { return runCheck(*request); };
  });
}

}  // namespace MXF::Tessel::Tool
