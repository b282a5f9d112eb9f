#pragma once

#include <string>

namespace CLI {
class App;
}

namespace MXF::Tessel::Tool {

/// The manual page of section 1, in the man(7) language: the tool, then a section for each subcommand with its options
/// and examples, all as its help has them.
/// @param tool     with everything declared.
/// @param version  of the tool.
std::string manualPage(const CLI::App& tool, const std::string& version);

}  // namespace MXF::Tessel::Tool
