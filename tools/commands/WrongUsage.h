#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace MXF::Tessel::Tool {

/// Checks that behind each option that takes a value there is one and not the next option, which the parser would take.
/// @param arguments  without the program's name.
/// @return what to say of the first one that has none, as wrongUsageLines() does; nothing when all have theirs.
std::vector<std::string> missingValueLines(const CLI::App& tool, const std::vector<std::string>& arguments);

/// What to say of a command line that could not be understood: what was wrong with it, with the option or command
/// that was probably meant, and where to read more. A line each, without the tool's name.
/// @param tool  has parsed the command line, and failed.
std::vector<std::string> wrongUsageLines(const CLI::App& tool, const CLI::ParseError& error);

}  // namespace MXF::Tessel::Tool
