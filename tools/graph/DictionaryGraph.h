#pragma once

#include "analysis/DictionaryIndex.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace MXF::Tessel::Tool {

/// What to draw.
struct GraphRequest {
  bool inheritance = true;
  bool references = true;
  const DictionaryIndex::Set* centre = nullptr;  ///< Draw what is around this set; null for all sets.
  /// How many edges from the centre: forward to what it is made of, its bases and the sets that it refers to, theirs
  /// and so on, where one step takes in all bases with what they refer to if both kinds of edges are drawn; and backward to the sets that derive from or refer to it, but not from there forward again.
  std::size_t depth = 1;
};

struct GraphEdge {
  const DictionaryIndex::Set* from;  ///< The derived set, or the one with the reference.
  const DictionaryIndex::Set* to;    ///< Its base, or a set that may be referred to.
  /// The element that refers; null for inheritance.
  const DictionaryIndex::Element* element = nullptr;
};

struct DictionaryGraph {
  DictionaryIndex::Sets nodes;   ///< In key order.
  std::vector<GraphEdge> edges;  ///< By the set they come from: its base first, then its references. Where bases are
                                 ///< drawn, inherited references stand at the base only.
};

DictionaryGraph dictionaryGraph(const DictionaryIndex& index, const GraphRequest& request);

}  // namespace MXF::Tessel::Tool
