#pragma once

#include "check/Check.h"

#include <string>

namespace MXF::Tessel::Tool {

/// What a check found, in lines as compilers write them, so that editors jump to the places:
/// "PATH:LINE:COLUMN: error: message [rule]", wrapped with the rest indented. Below it the places that it clashes with,
/// as notes, and what to do, once for findings in a row that it is the same for. What many findings of a file have in
/// common is told once. At the end how much was examined and found.
/// @param least        leave out what matters less.
/// @param withSummary  whether to add the end.
std::string findingsText(const CheckResult& result, Severity least, bool withSummary);

}  // namespace MXF::Tessel::Tool
