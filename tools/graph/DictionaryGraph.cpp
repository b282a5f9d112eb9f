#include "graph/DictionaryGraph.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;

namespace {

std::vector<GraphEdge> allEdges(const DictionaryIndex& index, const GraphRequest& request) {
  std::vector<GraphEdge> edges;
  for (const MetaMetadataSet* set : index.sets()) {
    const MetaMetadataSet* base = index.baseOf(*set);
    if (request.inheritance && base != nullptr) edges.push_back({set, base});
    const auto& attributes = set->metaAttributes();
    const std::size_t first = request.inheritance ? index.inheritedAttributes(*set) : 0;
    for (std::size_t i = first; request.references && i < attributes.size(); ++i) {
      const MetaElement& element = attributes[i]->metaElement();
      for (const MetaMetadataSet* target : index.targetsOf(element)) edges.push_back({set, target, &element});
    }
  }
  return edges;
}

enum class Direction { Forward, Backward };

/// The part of a graph that can be reached from its centre in one direction.
class Reach {
 public:
  Reach(const std::vector<GraphEdge>& edges, const GraphRequest& request, Direction direction)
      : direction_(direction), depth_(request.depth) {
    std::map<const MetaMetadataSet*, DictionaryIndex::Sets> next;
    for (const GraphEdge& edge : edges) next[start(edge)].push_back(end(edge));
    distance_[request.centre] = 0;
    DictionaryIndex::Sets rim{request.centre};
    for (std::size_t step = 1; step <= depth_ && !rim.empty(); ++step) {
      if (direction_ == Direction::Forward && request.inheritance && request.references) addBases(rim, edges);
      DictionaryIndex::Sets farther;
      for (const MetaMetadataSet* set : rim) {
        for (const MetaMetadataSet* neighbour : next[set]) {
          if (distance_.emplace(neighbour, step).second) farther.push_back(neighbour);
        }
      }
      rim = std::move(farther);
    }
  }

  [[nodiscard]] bool holds(const MetaMetadataSet* set) const { return distance_.count(set) != 0; }
  /// Whether the edge was followed; edges between sets at full depth are not.
  [[nodiscard]] bool holds(const GraphEdge& edge) const {
    const auto found = distance_.find(start(edge));
    return found != distance_.end() && found->second < depth_;
  }

 private:
  /// Puts bases beside the sets derived from them: their references, which are drawn there only, are those sets' as well.
  void addBases(DictionaryIndex::Sets& sets, const std::vector<GraphEdge>& edges) {
    std::map<const MetaMetadataSet*, const MetaMetadataSet*> bases;
    for (const GraphEdge& edge : edges) {
      if (edge.element == nullptr) bases[edge.from] = edge.to;
    }
    for (std::size_t i = 0; i < sets.size(); ++i) {
      const auto base = bases.find(sets[i]);
      if (base == bases.end() || !distance_.emplace(base->second, distance_.at(sets[i])).second) continue;
      sets.push_back(base->second);
    }
  }

  [[nodiscard]] const MetaMetadataSet* start(const GraphEdge& edge) const {
    return direction_ == Direction::Forward ? edge.from : edge.to;
  }
  [[nodiscard]] const MetaMetadataSet* end(const GraphEdge& edge) const {
    return direction_ == Direction::Forward ? edge.to : edge.from;
  }

  Direction direction_;
  std::size_t depth_;
  std::map<const MetaMetadataSet*, std::size_t> distance_;
};

}  // namespace

DictionaryGraph dictionaryGraph(const DictionaryIndex& index, const GraphRequest& request) {
  DictionaryGraph graph{index.sets(), allEdges(index, request)};
  if (request.centre == nullptr) return graph;

  const Reach forward(graph.edges, request, Direction::Forward);
  const Reach backward(graph.edges, request, Direction::Backward);
  const auto isReached = [&](const auto& item) { return forward.holds(item) || backward.holds(item); };
  DictionaryGraph part;
  std::copy_if(graph.nodes.begin(), graph.nodes.end(), std::back_inserter(part.nodes), isReached);
  std::copy_if(graph.edges.begin(), graph.edges.end(), std::back_inserter(part.edges), isReached);
  return part;
}

}  // namespace MXF::Tessel::Tool
