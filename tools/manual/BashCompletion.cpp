// Writes a completion script. Entry point: bashCompletion(); all else is local. What is completed depends on the
// subcommand before the cursor and on the word before the cursor; the script is one case statement for each.

#include "manual/BashCompletion.h"

#include "check/Rules.h"
#include "manual/Declarations.h"

#include <sstream>

namespace MXF::Tessel::Tool {

namespace {

/// Type name of the options whose values are rules of check.
constexpr const char* ruleType = "RULE";

constexpr const char* header =
    R"(# Completion of MXF_METADICT for bash. Source it, or put it into the folder that bash-completion reads.
_FUNCTION() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' word
  COMPREPLY=()
  # Bash makes three words of --option=value.
  if [ "$current" = '=' ]; then
    current=''
  elif [ "$previous" = '=' ]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in
      SUBCOMMANDS) command=$word; break ;;
    esac
  done
)";

/// With no reply, bash completes file names.
constexpr const char* trailer = R"(}
complete -o bashdefault -o default -F _FUNCTION MXF_METADICT
)";

std::string joined(const std::vector<std::string>& words, const std::string& separator) {
  return CLI::detail::join(words, separator);
}

std::vector<std::string> subcommandNames(const CLI::App& tool) {
  std::vector<std::string> names;
  for (const CLI::App* subcommand : declaredSubcommands(tool)) names.push_back(subcommand->get_name());
  return names;
}

std::vector<std::string> ruleNames() {
  std::vector<std::string> names;
  for (const Rule& rule : allRules()) names.emplace_back(rule.id);
  return names;
}

std::string reply(const std::vector<std::string>& words) {
  return "mapfile -t COMPREPLY < <(compgen -W '" + joined(words, " ") + "' -- \"$current\")";
}

/// The values of the options that take one: their words, or nothing, so that file names are completed.
void writeValues(std::ostream& script, const CLI::App& app, const std::string& command) {
  for (const CLI::Option* option : app.get_options()) {
    if (!takesValue(*option) || option->get_positional()) continue;
    std::vector<std::string> choices = choicesOf(*option);
    if (option->get_type_name() == ruleType) choices = ruleNames();
    for (const std::string& name : namesOf(*option)) {
      script << "    " << command << ':' << name << ") " << (choices.empty() ? "" : reply(choices) + "; ")
             << "return ;;\n";
    }
  }
}

void writeNames(std::ostream& script, const CLI::App& app, const std::string& command,
                const std::vector<std::string>& more) {
  std::vector<std::string> words;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) words.push_back("--" + name);
  }
  words.insert(words.end(), more.begin(), more.end());
  // Where files are expected they come first, until a dash asks for an option.
  const bool takesFiles = !app.get_options([](const CLI::Option* option) { return option->get_positional(); }).empty();
  const std::string condition = takesFiles ? "[[ $current != -* ]] || " : "";
  script << "    " << (command.empty() ? "''" : command) << ") " << condition << reply(words) << " ;;\n";
}

std::string replaced(std::string text, const std::string& placeholder, const std::string& value) {
  return CLI::detail::find_and_replace(std::move(text), placeholder, value);
}

std::string withNames(const char* text, const CLI::App& tool) {
  const std::string function = "_" + replaced(tool.get_name(), "-", "_");
  std::string result = replaced(text, "_FUNCTION", function);
  result = replaced(result, "SUBCOMMANDS", joined(subcommandNames(tool), " | "));
  return replaced(result, "MXF_METADICT", tool.get_name());
}

}  // namespace

std::string bashCompletion(const CLI::App& tool) {
  std::ostringstream script;
  script << withNames(header, tool);
  script << "  case $command:$previous in\n";
  for (const CLI::App* subcommand : declaredSubcommands(tool)) writeValues(script, *subcommand, subcommand->get_name());
  script << "  esac\n  case $command in\n";
  writeNames(script, tool, "", subcommandNames(tool));
  for (const CLI::App* subcommand : declaredSubcommands(tool)) {
    writeNames(script, *subcommand, subcommand->get_name(), {});
  }
  script << "  esac\n" << withNames(trailer, tool);
  return script.str();
}

}  // namespace MXF::Tessel::Tool
