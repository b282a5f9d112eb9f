#include "analysis/OwnUses.h"

#include <map>

namespace MXF::Tessel::Tool {

std::vector<OwnUse> ownUsesOf(const DictionaryIndex& index, const DictionaryIndex::Element& element) {
  std::map<const DictionaryIndex::Set*, DictionaryIndex::Sets> heirs;
  for (const DictionaryIndex::Use& use : index.usesOf(element)) {
    if (use.isInherited) heirs[&index.declaringSet(*use.set, use.attribute)].push_back(use.set);
  }
  std::vector<OwnUse> uses;
  for (const DictionaryIndex::Use& use : index.usesOf(element)) {
    if (!use.isInherited) uses.push_back({use.set, &*use.set->metaAttributes()[use.attribute], heirs[use.set]});
  }
  return uses;
}

DictionaryIndex::Sets holdersOf(const DictionaryIndex& index, const DictionaryIndex::Element& element) {
  DictionaryIndex::Sets holders;
  for (const DictionaryIndex::Use& use : index.usesOf(element)) {
    if (!use.isInherited) holders.push_back(use.set);
  }
  return holders;
}

}  // namespace MXF::Tessel::Tool
