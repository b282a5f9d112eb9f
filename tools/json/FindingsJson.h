#pragma once

#include "check/Check.h"

#include <string>

namespace MXF::Tessel::Tool {

/// What a check found, as the JSON document of docs/check.schema.json.
std::string findingsJson(const CheckResult& result);

}  // namespace MXF::Tessel::Tool
