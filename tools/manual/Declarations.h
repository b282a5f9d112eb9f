#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

/// What the command line parser was told, as the manual page and the completion need it.
namespace MXF::Tessel::Tool {

inline std::vector<const CLI::App*> declaredSubcommands(const CLI::App& tool) {
  return tool.get_subcommands([](const CLI::App*) { return true; });
}

/// All names of an option as they are typed: -h and --help. None for a positional argument.
inline std::vector<std::string> namesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

/// Whether the option is followed by a value.
inline bool takesValue(const CLI::Option& option) {
  return option.get_items_expected_max() > 0;
}

/// The words that an option's value is one of, as its type name "text|json" lists them; none for FILE and the like.
inline std::vector<std::string> choicesOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.find('|') == std::string::npos ? std::vector<std::string>() : CLI::detail::split(type, '|');
}

}  // namespace MXF::Tessel::Tool
