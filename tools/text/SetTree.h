#pragma once

#include <MetaMetadata/Dictionary.h>

#include <cstddef>
#include <vector>

namespace MXF::Tessel::Tool {

/// A set's place in the inheritance tree.
struct SetTreeEntry {
  const MetaMetadata::MetaMetadataSet* set;  ///< The dictionary's.
  std::size_t depth;                         ///< 0 for a set whose base the dictionary does not hold.
  std::size_t inheritedAttributes;           ///< That many of its attributes, the first ones, are its base's.
};

/// All sets of a dictionary, each once and after its base; sets of one base in key order. Sets that are bases of each
/// other in a circle hang below the first of them, in key order.
std::vector<SetTreeEntry> setTree(const MetaMetadata::Dictionary& dictionary);

}  // namespace MXF::Tessel::Tool
