#include "text/SetTree.h"

#include "analysis/DictionaryIndex.h"

#include <set>

namespace MXF::Tessel::Tool {

using MetaMetadata::Dictionary;
using MetaMetadata::MetaMetadataSet;

namespace {

class TreeBuilder {
 public:
  explicit TreeBuilder(const Dictionary& dictionary) : index_(dictionary) {}

  std::vector<SetTreeEntry> build() {
    for (const MetaMetadataSet* set : index_.sets()) {
      if (index_.baseOf(*set) == nullptr) addWithDerived(*set);
    }
    for (const MetaMetadataSet* set : index_.sets()) {
      if (added_.count(set) == 0) addWithDerived(*set);  // what is left goes in circles
    }
    return std::move(entries_);
  }

 private:
  /// Without recursion: a schema decides how deep the tree is.
  void addWithDerived(const MetaMetadataSet& root) {
    std::vector<SetTreeEntry> waiting{{&root, 0, 0}};
    while (!waiting.empty()) {
      const SetTreeEntry entry = waiting.back();
      waiting.pop_back();
      if (!added_.insert(entry.set).second) continue;
      entries_.push_back(entry);
      const DictionaryIndex::Sets& derived = index_.derivedFrom(*entry.set);
      // The last one pushed comes first.
      for (auto set = derived.rbegin(); set != derived.rend(); ++set) {
        waiting.push_back({*set, entry.depth + 1, index_.inheritedAttributes(**set)});
      }
    }
  }

  DictionaryIndex index_;
  std::set<const MetaMetadataSet*> added_;
  std::vector<SetTreeEntry> entries_;
};

}  // namespace

std::vector<SetTreeEntry> setTree(const Dictionary& dictionary) {
  return TreeBuilder(dictionary).build();
}

}  // namespace MXF::Tessel::Tool
