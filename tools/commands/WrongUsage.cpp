// Hints for mistyped command lines. Entry point: wrongUsageLines(); all else is local.

#include "commands/WrongUsage.h"

#include "text/Similarity.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* howToCompare =
    "diff takes two dumps, OLD and NEW; 'mxf-metadict dump --format json --output FILE ...' makes one of schemas";

std::vector<std::string> commandNames(const CLI::App& tool) {
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

/// The option's name without its value, as in --output=FILE.
std::string nameIn(const std::string& argument) {
  return argument.substr(0, argument.find('='));
}

bool isOptionOf(const CLI::App& app, const std::string& name) {
  const std::vector<std::string> names = optionNames(app);
  return std::find(names.begin(), names.end(), name) != names.end();
}

bool looksLikeOption(const std::string& argument) {
  return argument.size() > 1 && argument.front() == '-' && argument != "--";
}

std::string didYouMean(const std::string& given, const std::vector<std::string>& known) {
  const std::vector<std::string> near = nearest(given, known);
  return near.empty() ? "" : "; did you mean " + CLI::detail::join(near, " or ") + "?";
}

/// An option that stands before the command it belongs to.
std::string misplacedOption(const CLI::App& tool, const std::string& option) {
  for (const CLI::App* subcommand : tool.get_subcommands([](const CLI::App*) { return true; })) {
    if (!isOptionOf(*subcommand, option)) continue;
    std::string advice = option;
    return advice.append(" comes after the command, as in 'mxf-metadict ")
        .append(subcommand->get_name())
        .append(" ")
        .append(option)
        .append("'");
  }
  return "";
}

/// An option of other commands for what check does anyway.
bool isDoneAnyway(const CLI::App& app, const std::string& option) {
  return app.get_name() == "check" && (option == "--keep-going" || option == "--abstract-groups");
}

std::string describeSurplus(const CLI::App& tool, const CLI::App& app, const std::string& argument) {
  const std::string name = nameIn(argument);
  const bool isTool = &app == &tool;
  const bool isBehindDashes = isOptionOf(app, name);
  if (looksLikeOption(argument) && !isBehindDashes) {
    if (isDoneAnyway(app, name)) return name + " is not needed: check always does that where it can";
    std::string misplaced = isTool ? misplacedOption(tool, name) : "";
    if (!misplaced.empty()) return misplaced;
    if (app.get_name() == "diff" && isOptionOf(*tool.get_subcommand("dump"), name)) return name + ": " + howToCompare;
    return "no such option: " + name + didYouMean(name, optionNames(app));
  }
  if (isTool && argument == "help") return "help takes one command, as in 'mxf-metadict help dump'";
  if (isTool) return "no such command: " + argument + didYouMean(argument, commandNames(tool));
  if (app.get_name() == "diff") return argument + ": " + howToCompare;
  const auto isPositional = [](const CLI::Option* option) { return option->get_positional(); };
  if (!app.get_options(isPositional).empty()) {
    return "unexpected argument: " + argument + "; what holds blanks needs quotation marks around it";
  }
  return "unexpected argument: " + argument + "; schemas are given with --dictionary, --scheme and --multiplex";
}

/// What the parser could not place, if anything. Where a command was expected, the first argument is at fault; among
/// the arguments of a command an option is, since what follows it is as a rule its value.
std::string describeSurplus(const CLI::App& tool, const CLI::App& app) {
  const std::vector<std::string> surplus = app.remaining();
  if (surplus.empty()) return "";
  const auto option = std::find_if(surplus.begin(), surplus.end(), looksLikeOption);
  const bool takeFirst = &app == &tool || option == surplus.end();
  return describeSurplus(tool, app, takeFirst ? surplus.front() : *option);
}

/// An option that takes one value and was given more, if any.
std::string repeatedOption(const CLI::App& app) {
  for (const CLI::Option* option : app.get_options()) {
    const bool isRepeated = option->get_multi_option_policy() == CLI::MultiOptionPolicy::Throw &&
                            option->get_items_expected_max() == 1 && option->count() > 1;
    if (isRepeated)
      return option->get_name() + " is given " + std::to_string(option->count()) + " times, and takes one value";
  }
  return "";
}

std::string whereToRead(const CLI::App& command) {
  return "try 'mxf-metadict " + command.get_name() + " --help'";
}

}  // namespace

std::vector<std::string> missingValueLines(const CLI::App& tool, const std::vector<std::string>& arguments) {
  const std::vector<std::string> commands = commandNames(tool);
  if (arguments.empty() || std::count(commands.begin(), commands.end(), arguments.front()) == 0) return {};
  const CLI::App* app = tool.get_subcommand(arguments.front());
  for (std::size_t i = 1; i < arguments.size() && arguments[i] != "--"; ++i) {
    const std::string name = nameIn(arguments[i]);
    if (!isOptionOf(*app, name) || app->get_option(name)->get_items_expected_max() == 0) continue;
    const bool hasEquals = name != arguments[i];
    const std::string value = hasEquals                  ? arguments[i].substr(name.size() + 1)
                              : i + 1 < arguments.size() ? arguments[i + 1]
                                                         : "";
    if (value.empty() || (!hasEquals && isOptionOf(*app, nameIn(value)))) {
      return {name + ": " + app->get_option(name)->get_type_name() + " is missing", whereToRead(*app)};
    }
    if (!hasEquals) ++i;
  }
  return {};
}

std::vector<std::string> wrongUsageLines(const CLI::App& tool, const CLI::ParseError& error) {
  const std::vector<CLI::App*> chosen = tool.get_subcommands();
  const CLI::App& app = chosen.empty() ? tool : *chosen.front();
  // First, since what is missing is often what was mistyped.
  std::string problem = describeSurplus(tool, tool);
  if (problem.empty()) problem = describeSurplus(tool, app);
  if (problem.empty() && chosen.empty()) {
    problem = "a command is required: " + CLI::detail::join(commandNames(tool), ", ");
  }
  if (problem.empty()) problem = repeatedOption(app);
  if (problem.empty()) problem = error.what();
  return {problem, chosen.empty() ? "try 'mxf-metadict --help'" : whereToRead(app)};
}

}  // namespace MXF::Tessel::Tool
