#pragma once

#include "diff/DictionaryComparison.h"

#include <string>

namespace MXF::Tessel::Tool {

/// The changes as a page for people, below the elements and sets that they are about.
/// @param withHeader  whether to begin with the dumps that were compared.
std::string differenceText(const DictionaryDump& before, const DictionaryDump& after,
                           const std::vector<Change>& changes, bool withHeader);

}  // namespace MXF::Tessel::Tool
