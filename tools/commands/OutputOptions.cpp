#include "commands/OutputOptions.h"

#include "output/OutputFile.h"
#include "output/StandardStreams.h"
#include "text/Unicode.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <unistd.h>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* outputGroup = "Output";
constexpr std::string_view htmlStart = "<!DOCTYPE html>";  // of reports, which may tell of schemas

/// https://no-color.org: set, and not to the empty text.
bool isSet(const char* variable) {
  const char* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): the tool has one thread
  return value != nullptr && *value != '\0';
}

/// One that takes no control sequences.
bool isDumbTerminal() {
  const char* terminal = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe): the tool has one thread
  return terminal != nullptr && std::string_view(terminal) == "dumb";
}

bool wantsColour(const OutputOptions& options, int descriptor) {
  if (options.colour != "auto") return options.colour == "always";
  return ::isatty(descriptor) == 1 && !isSet("NO_COLOR") && !isDumbTerminal();
}

/// Whether the file looks like an XML Schema document, in UTF-8 or UTF-16, well-formed or not. Nothing that we write does.
bool isSchema(const std::string& path) {
  constexpr std::size_t enough = std::size_t{1} << 20U;  // for the start tag, whatever comments stand before it
  std::ifstream file(path, std::ios::binary);
  std::string text(enough, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  text.erase(std::remove(text.begin(), text.end(), '\0'), text.end());
  const std::size_t begin = text.find_first_not_of("\xEF\xBB\xBF\xFE\xFF \t\r\n");
  if (begin == std::string::npos || text[begin] != '<') return false;
  return text.compare(begin, htmlStart.size(), htmlStart) != 0 &&
         text.find("http://www.w3.org/2001/XMLSchema") != std::string::npos;
}

const char* nameOfKind(Style kind) {
  if (kind == Style::Error) return "error:";
  return kind == Style::Warning ? "warning:" : "note:";
}

}  // namespace

CLI::Option& declareChoice(CLI::App& command, const std::string& option, std::string& value,
                           const std::vector<std::string>& choices, const std::string& help) {
  const auto check = [choices](const std::string& given) {
    if (std::find(choices.begin(), choices.end(), given) != choices.end()) return std::string();
    return "there is no \"" + given + "\", only " + CLI::detail::join(choices, ", ");
  };
  return *command.add_option(option, value, help)->type_name(CLI::detail::join(choices, "|"))->check(check, "");
}

void declareOutputOptions(CLI::App& subcommand, const std::vector<std::string>& formats, OutputOptions& options) {
  options.format = formats.front();
  declareChoice(subcommand, "--format", options.format, formats,
                "Form of the output; " + formats.front() + " if not given")
      .group(outputGroup);
  subcommand
      .add_option("--output", options.file, "Write to this file, whole or not at all, not to the standard output")
      ->type_name("FILE")
      ->group(outputGroup);
  declareChoice(subcommand, "--color", options.colour, {"auto", "always", "never"},
                "Colour in text; auto if not given: on a terminal, unless\nNO_COLOR is set or TERM is dumb")
      .group(outputGroup);
  subcommand.add_flag("--quiet", options.quiet, "Only errors and the result: no warnings, notes or summaries")
      ->group(outputGroup);
}

void writeResult(const OutputOptions& options, std::string_view result) {
  const bool isStyled = options.format == Formats::text;
  const bool isColoured = options.colour == "always" || (!options.file && wantsColour(options, STDOUT_FILENO));
  const std::string plain = isStyled && !isColoured ? withoutStyles(result) : std::string(result);
  if (options.file) {
    replaceFile(*options.file, plain);
  } else {
    writeStandardOutput(plain);
  }
}

bool isForTerminal(const OutputOptions& options) {
  return !options.file && ::isatty(STDOUT_FILENO) == 1;
}

bool isOutputRefused(const OutputOptions& options, const std::vector<std::string>& inputs) {
  std::error_code ignored;
  if (!options.file || !std::filesystem::is_regular_file(*options.file, ignored)) return false;
  for (const std::string& input : inputs) {
    if (!std::filesystem::equivalent(*options.file, input, ignored)) continue;
    reportError("--output would replace " + input + ", which is to be read");
    return true;
  }
  if (!isSchema(*options.file)) return false;
  reportError("--output would replace " + *options.file +
              ", which is an XML Schema, as imports are; name another file, or remove that one first");
  return true;
}

void reportProblem(const OutputOptions& options, const std::string& place, Style kind, const std::string& text) {
  if (!wantsColour(options, STDERR_FILENO)) return reportLine(place + ": " + nameOfKind(kind) + ' ' + text);
  reportStyledLine(inStyle(printableBytes(place) + ':', Style::Name) + ' ' + inStyle(nameOfKind(kind), kind) + ' ' +
                   printableBytes(text));
}

}  // namespace MXF::Tessel::Tool
