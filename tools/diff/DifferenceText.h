#pragma once

#include "diff/DictionaryComparison.h"

#include <string>

namespace MXF::Tessel::Tool {

/// The changes as a page for people, below the elements and sets that they are about.
/// @param withSummary  whether to end with how many changes there are.
std::string differenceText(const DictionaryDump& before, const DictionaryDump& after,
                           const std::vector<Change>& changes, bool withSummary);

}  // namespace MXF::Tessel::Tool
