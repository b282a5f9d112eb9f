#pragma once

#include "loading/SchemaLoading.h"

#include <optional>

namespace MXF::Tessel::Tool {

/// What may have been wrong with a load that failed, if that can be told from the file or from what was loaded before.
/// @param outcome  of the loads before and of this one, which the record is of.
std::optional<Advice> adviceOnFailure(const LoadRecord& record, const LoadOutcome& outcome);

/// Why a load added nothing to the dictionary, and what to do.
/// @param flavour              multiplex namespace of the flavour in use.
/// @param triedAbstractGroups  the load with abstract groups failed.
Advice adviceOnNothing(const SchemaFile& file, const Templates::WideString& flavour, bool triedAbstractGroups);

}  // namespace MXF::Tessel::Tool
