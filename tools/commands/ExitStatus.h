#pragma once

namespace MXF::Tessel::Tool {

/// What the tool tells the shell.
enum class ExitStatus : int {
  Success = 0,
  /// A file failed to load or is not what it was given as, what was asked for is not there, or the output could not be
  /// written.
  Failure = 1,
  WrongUsage = 2  ///< The command line could not be understood; nothing was loaded.
};

}  // namespace MXF::Tessel::Tool
