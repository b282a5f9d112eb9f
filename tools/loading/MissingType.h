#pragma once

#include "loading/Failure.h"

#include <string>

namespace MXF::Tessel::Tool {

/// What to do about the type of a group, or a base type, that is not declared in what the loader reads: sentences.
std::string remedyOfMissingType(const Failure& failure);

}  // namespace MXF::Tessel::Tool
