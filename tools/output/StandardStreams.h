#pragma once

#include "loading/SchemaLoading.h"

#include <string_view>

namespace MXF::Tessel::Tool {

/// Writes the text to the standard output.
/// @throws std::system_error  not all of it could be written.
void writeStandardOutput(std::string_view text);

/// Writes one line to the standard error stream: the tool's name, ": ", and the message, in which line breaks become
/// blanks. There is nobody to tell when that fails.
/// @param message  UTF-8.
void reportError(std::string_view message);

/// The line for a file that failed: "FILE: Class (code): message", without the code when there is none.
void reportLoadFailure(const LoadRecord& record);

}  // namespace MXF::Tessel::Tool
