#pragma once

#include "check/Rules.h"

#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// Which rules apply.
struct RuleSelection {
  std::vector<std::string> only;      ///< Ids of the rules to apply beside those about loading; all when empty.
  std::vector<std::string> disabled;  ///< Ids of the rules not to apply; none of Scope::Failures.
};

/// What was examined and found.
struct CheckResult {
  std::size_t files = 0;
  std::size_t elements = 0;
  std::size_t sets = 0;
  bool isIncomplete = false;  ///< A file failed to load.
  Findings findings;          ///< By rule in the order of the table; then in the order of declaration.

  [[nodiscard]] std::size_t count(Severity severity) const;
};

CheckResult check(const LoadOutcome& outcome, const RuleSelection& selection);

}  // namespace MXF::Tessel::Tool
