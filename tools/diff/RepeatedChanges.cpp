// Finds changes that are told many times: those of a base's attributes come again with every set that inherits them, a
// new namespace with everything in it. Entry point: markRepeatedChanges(); all else is local.

#include "diff/ComparisonSteps.h"

#include <tuple>

namespace MXF::Tessel::Tool {

namespace {

bool mayRepeat(const Change& change) {
  if (change.element && change.set) return true;
  switch (change.kind) {
    case ChangeKind::XmlNamespaceChanged:
    case ChangeKind::PrefixChanged:
    case ChangeKind::AttributeOrderChanged:
      return true;
    default:
      return false;
  }
}

/// What two changes have in common of which one repeats the other.
using Content = std::tuple<ChangeKind, bool, std::string, std::string, std::string>;

Content contentOf(const Change& change) {
  // A set has its own namespace in common with its attributes.
  const bool isOfElement = change.element && change.set && change.kind != ChangeKind::XmlNamespaceChanged;
  return {change.kind, change.set.has_value(), isOfElement ? change.element->id : "", writeJson(change.before),
          writeJson(change.after)};
}

/// The set that declares an attribute has fewer attributes than any that inherits it.
std::size_t attributesOf(const Comparison& comparison, const Change& change) {
  return change.set ? comparison.before.sets.at(change.set->id).attributes.size() : 0;
}

}  // namespace

void markRepeatedChanges(Comparison& comparison) {
  std::vector<Change>& changes = comparison.changes;
  std::map<Content, std::size_t> origins;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    if (!mayRepeat(changes[i])) continue;
    std::size_t& origin = origins.emplace(contentOf(changes[i]), i).first->second;
    if (attributesOf(comparison, changes[i]) < attributesOf(comparison, changes[origin])) origin = i;
  }
  for (std::size_t i = 0; i < changes.size(); ++i) {
    if (!mayRepeat(changes[i])) continue;
    const std::size_t origin = origins.at(contentOf(changes[i]));
    if (origin != i) changes[i].sameAs = origin;
  }
}

}  // namespace MXF::Tessel::Tool
