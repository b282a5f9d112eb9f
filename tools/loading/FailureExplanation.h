#pragma once

#include "loading/SchemaLoading.h"

namespace MXF::Tessel::Tool {

/// Gives a failure that has no place the one that its message stands for: the root of a schema that does not bind the
/// prefix of the loader's queries.
void findPlace(const SchemaFile& file, Failure& failure);

/// What can be told of a failure beside its message, from the file, from what was loaded before, and from how.
/// @param record   of the load that failed; not among those of the outcome yet.
/// @param outcome  of the loads before, and of what this one left in the dictionary.
Explanation explainFailure(const LoadRecord& record, const LoadOutcome& outcome, bool withAbstractGroups);

}  // namespace MXF::Tessel::Tool
