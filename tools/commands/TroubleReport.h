#pragma once

#include "commands/OutputOptions.h"
#include "loading/SchemaLoading.h"

#include <set>
#include <string>

namespace MXF::Tessel::Tool {

/// Tells on the standard error stream what goes wrong while files are loaded, as compilers do, so that editors jump
/// there: "PATH:LINE:COLUMN: error: message [Class]", or without line and column where they are not known. Below it, as
/// notes of the same form, what may be wrong; what was said of a file before is not said again of the next.
class TroubleReport {
 public:
  /// @param output  says whether to tell errors only, and whether in colour; outlives this.
  explicit TroubleReport(const OutputOptions& output) : output_(output) {}

  void tell(const LoadRecord& record);
  /// An error about a file as a whole.
  void tellError(const std::string& path, const std::string& text) const;
  /// A note, unless there are to be none.
  void tellNote(const std::string& place, const std::string& text) const;

 private:
  void tellFailure(const LoadRecord& record);
  void tellLeftOutGroups(const LoadRecord& record);

  const OutputOptions& output_;
  std::set<std::string> told_;
};

}  // namespace MXF::Tessel::Tool
