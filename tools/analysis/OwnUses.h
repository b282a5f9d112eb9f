#pragma once

#include "analysis/DictionaryIndex.h"

#include <vector>

namespace MXF::Tessel::Tool {

/// A set's use of an element as an attribute of its own.
struct OwnUse {
  const DictionaryIndex::Set* set;
  const MetaMetadata::MetaAttribute* attribute;
  DictionaryIndex::Sets heirs;  ///< The sets that inherit the attribute, directly or not, in the dictionary's order.
};

/// Where an element is used, in the dictionary's order of sets.
std::vector<OwnUse> ownUsesOf(const DictionaryIndex& index, const DictionaryIndex::Element& element);

/// The sets of which the element is an attribute of their own.
DictionaryIndex::Sets holdersOf(const DictionaryIndex& index, const DictionaryIndex::Element& element);

}  // namespace MXF::Tessel::Tool
