#pragma once

#include "loading/SchemaLoading.h"

#include <string>

namespace MXF::Tessel::Tool {

/// What to do about a group's reference to an element that the dictionary does not hold: sentences.
/// @param reference  as the schema has it, such as e:Count.
/// @param outcome    of the loads before.
std::string remedyOfMissingElement(const Failure& failure, const Templates::WideString& reference,
                                   const LoadOutcome& outcome);

/// Whether a failure is for want of an element that a dictionary declares which was passed over.
bool isForWantOfPassedOver(const Failure& failure, const LoadOutcome& outcome);

}  // namespace MXF::Tessel::Tool
