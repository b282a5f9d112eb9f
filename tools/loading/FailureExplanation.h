#pragma once

#include "loading/SchemaLoading.h"

namespace MXF::Tessel::Tool {

/// What can be told of a failure beside its message, from the file, from what was loaded before, and from how.
/// @param record   of the load that failed; not among those of the outcome yet.
/// @param outcome  of the loads before, and of what this one left in the dictionary.
Explanation explainFailure(const LoadRecord& record, const LoadOutcome& outcome, bool withAbstractGroups);

}  // namespace MXF::Tessel::Tool
