#pragma once

#include "check/Check.h"

#include <string>

namespace MXF::Tessel::Tool {

/// How findings are told.
struct FindingsForm {
  Severity least = Severity::Note;  ///< Leave out what matters less.
  bool withSummary = true;          ///< Tell at the end how much was examined and found.
  bool isWrapped = true;            ///< Lines of the width of a page, for people; else each text on a line of its own.
};

/// What a check found, in lines as compilers write them, so that editors jump to the places:
/// "PATH:LINE:COLUMN: error: message [rule]", the rest of wrapped ones indented. Below it the places that it clashes
/// with, as notes, and what to do, once for findings in a row that it is the same for. What many findings of a file
/// have in common is told once.
std::string findingsText(const CheckResult& result, const FindingsForm& form);

}  // namespace MXF::Tessel::Tool
