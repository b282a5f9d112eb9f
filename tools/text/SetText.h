#pragma once

#include <MetaMetadata/Dictionary.h>

#include <string>

namespace MXF::Tessel::Tool {

/// Appends the sets of a dictionary as an inheritance tree: each set with its key, how many attributes it inherits
/// and adds, and the attributes that it adds to those of the set above it.
void appendSets(std::string& page, const MetaMetadata::Dictionary& dictionary);

}  // namespace MXF::Tessel::Tool
