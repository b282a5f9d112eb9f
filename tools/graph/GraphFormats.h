#pragma once

#include "graph/DictionaryGraph.h"

#include <string>

/// A graph in the languages of programs that draw or read it. All are UTF-8, and in the order of the graph.
namespace MXF::Tessel::Tool {

/// For Graphviz: abstract sets are dashed; inheritance has hollow arrows, weak references dashed lines, and references
/// to many sets end with a crow's foot.
std::string graphDot(const DictionaryGraph& graph);

/// For Mermaid, as a flowchart: abstract sets are dashed; inheritance has thick arrows, weak references dotted ones.
std::string graphMermaid(const DictionaryGraph& graph);

/// As the JSON document of docs/graph.schema.json.
std::string graphJson(const DictionaryGraph& graph);

}  // namespace MXF::Tessel::Tool
