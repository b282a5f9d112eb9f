#include "output/StandardStreams.h"

#include "output/FileDescriptor.h"

#include <string>
#include <system_error>
#include <unistd.h>

namespace MXF::Tessel::Tool {

namespace {

/// The bytes of all mandatory line breaks in UTF-8.
constexpr std::string_view lineBreaks[] = {"\n", "\v", "\f", "\r", "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};

std::string onOneLine(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    std::string_view found;
    for (const std::string_view lineBreak : lineBreaks) {
      if (text.substr(0, lineBreak.size()) == lineBreak) found = lineBreak;
    }
    line += found.empty() ? text.front() : ' ';
    text.remove_prefix(found.empty() ? 1 : found.size());
  }
  return line;
}

}  // namespace

void writeStandardOutput(std::string_view text) {
  writeAll(STDOUT_FILENO, text, "standard output");
}

void reportLine(std::string_view message) {
  try {
    writeAll(STDERR_FILENO, onOneLine(message) + '\n', "standard error");
  } catch (const std::system_error&) {  // NOLINT(bugprone-empty-catch): see the header
  }
}

void reportError(std::string_view message) {
  reportLine("mxf-metadict: " + std::string(message));
}

}  // namespace MXF::Tessel::Tool
