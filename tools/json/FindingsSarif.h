#pragma once

#include "check/Check.h"

#include <string>

namespace MXF::Tessel::Tool {

/// What a check found, as a log of SARIF 2.1.0 (OASIS) with all rules and one run.
std::string findingsSarif(const CheckResult& result);

}  // namespace MXF::Tessel::Tool
