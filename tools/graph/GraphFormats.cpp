// Entry points: graphDot(), graphMermaid(), graphJson(); all else is local. Sets are identified by their keys, so that
// the same set has the same identifier in every graph.

#include "graph/GraphFormats.h"

#include "json/JsonText.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/Unicode.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>
#include <Types/Identifiers.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;
using MetaMetadata::PropertyMap;
using Types::Identifiers::Identifier;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

struct Replacement {
  char character;
  const char* text;
};

/// In a quoted label of DOT a backslash starts an escape and an ampersand an entity.
constexpr Replacement dotReplacements[] = {{'"', "\\\""}, {'\\', "\\\\"}, {'&', "&amp;"}};

/// A quoted label of Mermaid is HTML with entities after a number sign; backquotes would make it Markdown.
constexpr Replacement mermaidReplacements[] = {{'"', "#quot;"}, {'#', "#35;"}, {'&', "#amp;"}, {'<', "#lt;"},
                                               {'>', "#gt;"},   {'`', "#96;"}, {'\\', "#92;"}};

template <std::size_t count>
std::string label(const PropertyMap& map, const Replacement (&replacements)[count]) {
  std::string result = "\"";
  for (const char character : encode(nameText(map))) {
    const auto* found = std::find_if(std::begin(replacements), std::end(replacements),
                                     [&](const Replacement& item) { return item.character == character; });
    found == std::end(replacements) ? result += character : result += found->text;
  }
  return result + '"';
}

struct ReferenceKind {
  bool isWeak;
  bool isMany;
};

ReferenceKind referenceKind(const MetaElement& element) {
  MetaMetadata::Visitors::GetMetaElementVisitor<MetaMetadata::MetaCollectionElement> visitor;
  element.accept(visitor);
  const bool isMany = visitor.get() != nullptr;
  const Identifier type = isMany ? visitor.get()->dataSubType() : element.dataType();
  return {type == Identifier::WeakReference, isMany};
}

std::string dotEdge(const GraphEdge& edge) {
  if (edge.element == nullptr) return "arrowhead=empty";
  const ReferenceKind kind = referenceKind(*edge.element);
  return "label=" + label(*edge.element, dotReplacements) + (kind.isMany ? ", arrowhead=crow" : ", arrowhead=vee") +
         (kind.isWeak ? ", style=dashed" : "");
}

std::string mermaidIdentifier(const MetaMetadataSet& set) {
  std::string key = identifierText(set.key());
  key.erase(std::remove(key.begin(), key.end(), '.'), key.end());
  return "set" + key;
}

std::string mermaidArrow(const GraphEdge& edge) {
  if (edge.element == nullptr) return "==>";
  const char* arrow = referenceKind(*edge.element).isWeak ? "-.->" : "-->";
  return arrow + ("|" + label(*edge.element, mermaidReplacements) + "|");
}

Json nameJson(const PropertyMap& map) {
  const Templates::WideString* name = findProperty(map, PropertyKeys::name);
  return name == nullptr ? Json() : jsonString(*name);
}

Json nodeJson(const MetaMetadataSet& set) {
  return {{"key", identifierText(set.key())}, {"name", nameJson(set)}, {"abstract", isAbstract(set)}};
}

Json edgeJson(const GraphEdge& edge) {
  Json json = {{"from", identifierText(edge.from->key())},
               {"to", identifierText(edge.to->key())},
               {"kind", edge.element == nullptr ? "inheritance" : "reference"}};
  if (edge.element == nullptr) return json;
  const ReferenceKind kind = referenceKind(*edge.element);
  json["element"] = jsonString(edge.element->universalLabel().toString(textForm));
  json["name"] = nameJson(*edge.element);
  json["weak"] = kind.isWeak;
  json["many"] = kind.isMany;
  return json;
}

}  // namespace

std::string graphDot(const DictionaryGraph& graph) {
  std::string text = "digraph sets {\n  rankdir=LR\n  node [shape=box]\n";
  for (const MetaMetadataSet* set : graph.nodes) {
    text += "  \"" + identifierText(set->key()) + "\" [label=" + label(*set, dotReplacements) +
            (isAbstract(*set) ? ", style=dashed" : "") + "]\n";
  }
  for (const GraphEdge& edge : graph.edges) {
    text += "  \"" + identifierText(edge.from->key()) + "\" -> \"" + identifierText(edge.to->key()) + "\" [" +
            dotEdge(edge) + "]\n";
  }
  return text + "}\n";
}

std::string graphMermaid(const DictionaryGraph& graph) {
  std::string text = "flowchart LR\n  classDef abstract stroke-dasharray: 5 5\n";
  for (const MetaMetadataSet* set : graph.nodes) {
    text += "  " + mermaidIdentifier(*set) + "[" + label(*set, mermaidReplacements) + "]" +
            (isAbstract(*set) ? ":::abstract" : "") + "\n";
  }
  for (const GraphEdge& edge : graph.edges) {
    text += "  " + mermaidIdentifier(*edge.from) + " " + mermaidArrow(edge) + " " + mermaidIdentifier(*edge.to) + "\n";
  }
  return text;
}

std::string graphJson(const DictionaryGraph& graph) {
  Json nodes = Json::array();
  for (const MetaMetadataSet* set : graph.nodes) nodes.push_back(nodeJson(*set));
  Json edges = Json::array();
  for (const GraphEdge& edge : graph.edges) edges.push_back(edgeJson(edge));
  return writeJson({{"nodes", std::move(nodes)}, {"edges", std::move(edges)}});
}

}  // namespace MXF::Tessel::Tool
