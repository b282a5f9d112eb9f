#pragma once

#include "check/Check.h"

#include <string>

namespace MXF::Tessel::Tool {

/// What a check found, in lines as compilers write them, so that editors jump to the places:
/// "PATH:LINE:COLUMN: error: message [rule]". Below it the places that it clashes with, as notes, and what to do, once
/// for findings in a row that it is the same for. At the end how much was examined and found.
/// @param withSummary  whether to add the end.
std::string findingsText(const CheckResult& result, bool withSummary);

}  // namespace MXF::Tessel::Tool
