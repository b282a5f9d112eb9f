// From a file to a dump. Entry point: readDump(). What a dump consists of is in DumpParts.cpp; here is all about files,
// and about files that are something else.

#include "diff/DumpReading.h"

#include "json/JsonReading.h"
#include "output/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace MXF::Tessel::Tool {

namespace {

/// A dump of all registers of SMPTE takes a few megabytes. In memory it takes up to twenty times as much.
constexpr std::size_t maximumSize = std::size_t{64} << 20U;

constexpr const char* howToDump = "'mxf-metadict dump --format json --output FILE ...' writes a dump";

NoDump noDump(const std::string& path, const std::string& problem, const std::string& advice = howToDump) {
  return {path + ": error: " + problem, path + ": note: " + advice};
}

NoDump unreadable(const std::string& path) {
  return noDump(path, std::generic_category().message(errno));
}

std::string readFile(const std::string& path) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file) throw unreadable(path);
  std::string text;
  std::array<char, 1U << 16U> buffer{};
  while (true) {
    const ssize_t size = ::read(file.get(), buffer.data(), buffer.size());
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) throw unreadable(path);
    if (size == 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(size));
    if (text.size() > maximumSize) throw noDump(path, "larger than 64 MiB, too large for a dump");
  }
}

bool startsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// Throws for what users are likely to take for a dump.
void rejectOtherKinds(const std::string& path, std::string_view text) {
  if (startsWith(text, "\xEF\xBB\xBF")) text.remove_prefix(3);
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  if (text.empty()) throw noDump(path, "the file is empty, a JSON dump is expected");
  if (startsWith(text, "<")) {
    throw noDump(path, "this is XML, a JSON dump is expected",
                 "dump schemas first: 'mxf-metadict dump --format json --output FILE ...', with --multiplex, "
                 "--dictionary and --scheme for the schemas");
  }
  if (startsWith(text, "Multiplex namespace:") || startsWith(text, "\x1B[")) {
    throw noDump(path, "this is output for people, a JSON dump is expected",
                 "add --format json to 'mxf-metadict dump'");
  }
}

Json parse(const std::string& path, const std::string& text) {
  try {
    return readJson(text);
  } catch (const JsonFault& fault) {
    const std::string place =
        fault.line == 0 ? "" : ":" + std::to_string(fault.line) + ":" + std::to_string(fault.column);
    throw NoDump(path + place + ": error: no JSON dump: " + fault.what(), path + ": note: " + howToDump);
  }
}

}  // namespace

DictionaryDump readDump(const std::string& path) {
  const std::string text = readFile(path);
  rejectOtherKinds(path, text);
  const Json document = parse(path, text);
  try {
    DictionaryDump dump = dumpOf(document);
    dump.path = path;
    return dump;
  } catch (const std::invalid_argument& fault) {
    throw noDump(path, std::string("not a dump as this version writes it: ") + fault.what(),
                 std::string("if it was made by another version or edited, make it again; ") + howToDump);
  }
}

}  // namespace MXF::Tessel::Tool
