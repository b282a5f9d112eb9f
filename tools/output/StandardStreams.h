#pragma once

#include <string_view>

namespace MXF::Tessel::Tool {

/// Writes the text to the standard output.
/// @throws std::system_error  not all of it could be written.
void writeStandardOutput(std::string_view text);

/// Writes a message as one line to the standard error stream, with printable characters only, so that line breaks become
/// blanks. There is nobody to tell when that fails.
/// @param message  UTF-8.
void reportLine(std::string_view message);

/// The same for a line that is printable but for the styles in it.
void reportStyledLine(std::string_view line);

/// The same after the tool's name and ": ", for what is about no file.
void reportError(std::string_view message);

}  // namespace MXF::Tessel::Tool
