#pragma once

namespace MXF::Tessel::Tool {

/// What the tool tells the shell.
enum class ExitStatus : int {
  Success = 0,
  /// A file failed to load or is not what it was given as, a check found errors, what was asked for is not there, or the
  /// output could not be written. Of diff: something breaks.
  Failure = 1,
  /// The command line could not be understood; nothing was loaded. Of diff also: there is no result.
  WrongUsage = 2
};

}  // namespace MXF::Tessel::Tool
