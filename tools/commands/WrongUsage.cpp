// Hints for mistyped command lines. Entry point: wrongUsageLines(); all else is local.

#include "commands/WrongUsage.h"

#include "text/Similarity.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

std::vector<std::string> subcommandNames(const CLI::App& tool) {
  std::vector<std::string> names;
  for (const CLI::App* subcommand : tool.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(subcommand->get_name());
  }
  return names;
}

std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

bool looksLikeOption(const std::string& argument) {
  return argument.size() > 1 && argument.front() == '-' && argument != "--";
}

std::string didYouMean(const std::string& given, const std::vector<std::string>& known) {
  const std::vector<std::string> near = nearest(given, known);
  return near.empty() ? "" : "; did you mean " + CLI::detail::join(near, " or ") + "?";
}

/// An option that stands before the subcommand it belongs to.
std::string misplacedOption(const CLI::App& tool, const std::string& option) {
  for (const CLI::App* subcommand : tool.get_subcommands([](const CLI::App*) { return true; })) {
    const std::vector<std::string> names = optionNames(*subcommand);
    if (std::find(names.begin(), names.end(), option) == names.end()) continue;
    return option + " comes after the subcommand, as in 'mxf-metadict " + subcommand->get_name() + " " + option + "'";
  }
  return "";
}

std::string describeSurplus(const CLI::App& tool, const CLI::App& app, const std::string& argument) {
  const std::string name = argument.substr(0, argument.find('='));
  const bool isTool = &app == &tool;
  const std::vector<std::string> known = optionNames(app);
  const bool isKnown = std::find(known.begin(), known.end(), name) != known.end();  // it stands behind "--"
  if (looksLikeOption(argument) && !isKnown) {
    const std::string misplaced = isTool ? misplacedOption(tool, name) : "";
    return misplaced.empty() ? "no such option: " + name + didYouMean(name, known) : misplaced;
  }
  if (isTool) return "no such subcommand: " + argument + didYouMean(argument, subcommandNames(tool));
  const auto isPositional = [](const CLI::Option* option) { return option->get_positional(); };
  if (!app.get_options(isPositional).empty()) {
    return "unexpected argument: " + argument + "; what holds blanks needs quotation marks around it";
  }
  return "unexpected argument: " + argument + "; schemas are given with --dictionary, --scheme and --multiplex";
}

/// What the parser could not place, if anything. Where a subcommand was expected, the first argument is at fault; among
/// the arguments of a subcommand an option is, since what follows it is as a rule its value.
std::string describeSurplus(const CLI::App& tool, const CLI::App& app) {
  const std::vector<std::string> surplus = app.remaining();
  if (surplus.empty()) return "";
  const auto option = std::find_if(surplus.begin(), surplus.end(), looksLikeOption);
  const bool takeFirst = &app == &tool || option == surplus.end();
  return describeSurplus(tool, app, takeFirst ? surplus.front() : *option);
}

}  // namespace

std::vector<std::string> wrongUsageLines(const CLI::App& tool, const CLI::ParseError& error) {
  const std::vector<CLI::App*> chosen = tool.get_subcommands();
  const CLI::App& app = chosen.empty() ? tool : *chosen.front();
  // First, since what is missing is often what was mistyped.
  std::string problem = describeSurplus(tool, tool);
  if (problem.empty()) problem = describeSurplus(tool, app);
  if (problem.empty() && chosen.empty()) {
    problem = "a subcommand is required: " + CLI::detail::join(subcommandNames(tool), ", ");
  }
  if (problem.empty()) problem = error.what();
  const std::string name = chosen.empty() ? "" : " " + app.get_name();
  return {problem, "try 'mxf-metadict" + name + " --help'"};
}

}  // namespace MXF::Tessel::Tool
