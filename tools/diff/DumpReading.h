#pragma once

#include "diff/DictionaryDump.h"

#include <stdexcept>

namespace MXF::Tessel::Tool {

/// A file that is no dump, or none that this version of the tool reads. The text is one line for people, in the form of
/// compilers: "PATH:LINE:COLUMN: error: what is wrong", without line and column when they are not known.
class NoDump : public std::runtime_error {
 public:
  NoDump(const std::string& line, std::string whatToDo) : std::runtime_error(line), advice(std::move(whatToDo)) {}

  std::string advice;  ///< What to do about it, a line "PATH: note: ...".
};

/// Reads and checks what `mxf-metadict dump --format json` wrote.
/// @param path  of a regular file, a pipe or a device.
/// @throws NoDump  the file cannot be read, is too large, or is no such dump.
DictionaryDump readDump(const std::string& path);

/// Checks and takes up the parts of a dump.
/// @param document  any JSON value.
/// @throws std::invalid_argument  it is no dump; the text says where, as a JSON pointer, and what is expected there.
DictionaryDump dumpOf(const Json& document);

}  // namespace MXF::Tessel::Tool
