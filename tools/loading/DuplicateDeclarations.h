#pragma once

#include "loading/SchemaLoading.h"

namespace MXF::Tessel::Tool {

/// Adds to what is told of a failure for a label or key that is declared twice where the other declaration is: in the
/// dictionary, or in the document that failed.
void addFirstDeclaration(const Failure& failure, const LoadOutcome& outcome, Explanation& explanation);

}  // namespace MXF::Tessel::Tool
