#pragma once

namespace MXF::Tessel::Tool {

/// What the tool tells the shell.
enum class ExitStatus : int {
  Success = 0,
  Failure = 1,    ///< A file failed to load, or the output could not be written.
  WrongUsage = 2  ///< The command line could not be understood; nothing was loaded.
};

}  // namespace MXF::Tessel::Tool
