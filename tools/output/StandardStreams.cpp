#include "output/StandardStreams.h"

#include "output/FileDescriptor.h"
#include "text/Unicode.h"

#include <string>
#include <system_error>
#include <unistd.h>

namespace MXF::Tessel::Tool {

void writeStandardOutput(std::string_view text) {
  writeAll(STDOUT_FILENO, text, "standard output");
}

void reportLine(std::string_view message) {
  reportStyledLine(printableBytes(message));
}

void reportStyledLine(std::string_view line) {
  try {
    writeAll(STDERR_FILENO, std::string(line) + '\n', "standard error");
  } catch (const std::system_error&) {  // NOLINT(bugprone-empty-catch): see the header
  }
}

void reportError(std::string_view message) {
  reportLine("mxf-metadict: " + std::string(message));
}

}  // namespace MXF::Tessel::Tool
