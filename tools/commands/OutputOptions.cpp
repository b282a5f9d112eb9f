#include "commands/OutputOptions.h"

#include "output/OutputFile.h"
#include "output/StandardStreams.h"
#include "text/TextLayout.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <unistd.h>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* outputGroup = "Output";

void declareChoice(CLI::App& subcommand, const std::string& option, std::string& value,
                   const std::vector<std::string>& choices, const std::string& help) {
  subcommand.add_option(option, value, help + "; " + choices.front() + " if not given")
      ->type_name(CLI::detail::join(choices, "|"))
      ->check(CLI::IsMember(choices).description(""))
      ->group(outputGroup);
}

/// https://no-color.org: set, and not to the empty text.
bool isSet(const char* variable) {
  const char* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): the tool has one thread
  return value != nullptr && *value != '\0';
}

bool wantsColour(const OutputOptions& options) {
  if (options.colour != "auto") return options.colour == "always";
  return !options.file && ::isatty(STDOUT_FILENO) == 1 && !isSet("NO_COLOR");
}

}  // namespace

void declareOutputOptions(CLI::App& subcommand, const std::vector<std::string>& formats, OutputOptions& options) {
  options.format = formats.front();
  declareChoice(subcommand, "--format", options.format, formats, "Form of the output");
  subcommand
      .add_option("--output", options.file, "Write to this file, whole or not at all, not to the standard output")
      ->type_name("FILE")
      ->group(outputGroup);
  declareChoice(subcommand, "--color", options.colour, {"auto", "always", "never"}, "Colour in text");
  subcommand.add_flag("--quiet", options.quiet, "Only errors and the result: no warnings, notes or summaries")
      ->group(outputGroup);
}

void writeResult(const OutputOptions& options, std::string_view result) {
  const bool isStyled = options.format == Formats::text;
  const std::string plain = isStyled && !wantsColour(options) ? withoutStyles(result) : std::string(result);
  if (options.file) {
    replaceFile(*options.file, plain);
  } else {
    writeStandardOutput(plain);
  }
}

}  // namespace MXF::Tessel::Tool
