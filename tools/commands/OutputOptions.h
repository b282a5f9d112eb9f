#pragma once

#include "text/TextLayout.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace MXF::Tessel::Tool {

namespace Formats {
inline constexpr const char* text = "text";
inline constexpr const char* json = "json";
}  // namespace Formats

/// What every subcommand can be told about its output.
struct OutputOptions {
  std::string format;  ///< One of those that the subcommand declares, the first one unless another is asked for.
  std::optional<std::string> file;  ///< Where to write; none for the standard output.
  std::string colour = "auto";
  bool quiet = false;  ///< Errors and the result only: no warnings, no notes, no closing summary.
};

/// Declares an option that takes one of several words, the first one when it is not given.
/// @return the option, for a group of its own.
CLI::Option& declareChoice(CLI::App& command, const std::string& option, std::string& value,
                           const std::vector<std::string>& choices, const std::string& help);

/// Declares --format, --output, --color and --quiet.
/// @param formats  what --format takes, the default first.
/// @param options  filled while the command line is read; outlives the subcommand.
void declareOutputOptions(CLI::App& subcommand, const std::vector<std::string>& formats, OutputOptions& options);

/// Writes a result where the options say: to the file, whole or not at all, or to the standard output.
/// @param result  UTF-8. Of a page for people (text/TextLayout.h) the styles are kept when colour is wanted: always,
///                or, with "auto", by a terminal that is not dumb while NO_COLOR is not set.
/// @throws std::system_error  it could not be written.
void writeResult(const OutputOptions& options, std::string_view result);

/// Whether the result is shown to somebody, and not read by a program or kept in a file.
bool isForTerminal(const OutputOptions& options);

/// Whether the output would replace one of these files, under whatever name, or any file that is an XML Schema, since
/// those that are read import others; if so, that is told.
bool isOutputRefused(const OutputOptions& options, const std::vector<std::string>& inputs);

/// Writes "PLACE: KIND: TEXT" as one line to the standard error stream, in colour as the options say.
/// @param kind  Error, Warning, or Hint for a note.
void reportProblem(const OutputOptions& options, const std::string& place, Style kind, const std::string& text);

}  // namespace MXF::Tessel::Tool
