#pragma once

#include <string>

namespace CLI {
class App;
}

namespace MXF::Tessel::Tool {

/// A script for bash that completes the tool's subcommands, options and their values: the words of options that take
/// one of several, file names for the others.
/// @param tool  with everything declared.
std::string bashCompletion(const CLI::App& tool);

}  // namespace MXF::Tessel::Tool
