#pragma once

#include "Batches.h"

#include <string>
#include <vector>

/// What the XML libraries do when they run out of memory and nobody else can mend: they lose blocks that they take from
/// operator new directly, in functions that hold them by bare pointers, and free one twice. All else that they lose was
/// taken from memory that goes with the loader, and counts as a defect here.
namespace MXF::Tessel::Test {

/// The text of a defect: so many blocks are in use that were not before.
std::string blocksLost(long count);

/// The innermost function of the stack that asks for memory for its own use rather than to hand it on.
std::string makerIn(const std::vector<std::string>& stack);

bool isKnownLoss(const Defect& defect);

}  // namespace MXF::Tessel::Test
