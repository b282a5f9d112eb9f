#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace MXF::Tessel::Tool {

/// What to say of a command line that could not be understood: what was wrong with it, with the option or subcommand
/// that was probably meant, and where to read more. A line each, without the tool's name.
/// @param tool  has parsed the command line, and failed.
std::vector<std::string> wrongUsageLines(const CLI::App& tool, const CLI::ParseError& error);

}  // namespace MXF::Tessel::Tool
