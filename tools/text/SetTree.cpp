#include "text/SetTree.h"

#include <MetaMetadata/PropertyKeys.h>

#include <algorithm>
#include <map>
#include <set>

namespace MXF::Tessel::Tool {

using MetaMetadata::Dictionary;
using MetaMetadata::MetaMetadataSet;

namespace {

constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;

class TreeBuilder {
 public:
  explicit TreeBuilder(const Dictionary& dictionary) {
    for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
      sets_.push_back(&entry->second);
      setsByKey_.emplace(entry->first.toString(textForm), &entry->second);
    }
    for (const MetaMetadataSet* set : sets_) {
      if (const MetaMetadataSet* base = baseOf(*set)) derived_[base].push_back(set);
    }
  }

  std::vector<SetTreeEntry> build() {
    for (const MetaMetadataSet* set : sets_) {
      if (baseOf(*set) == nullptr) addWithDerived(*set);
    }
    for (const MetaMetadataSet* set : sets_) {
      if (added_.count(set) == 0) addWithDerived(*set);  // what is left goes in circles
    }
    return std::move(entries_);
  }

 private:
  [[nodiscard]] const MetaMetadataSet* baseOf(const MetaMetadataSet& set) const {
    const auto label = set.properties().find(MetaMetadata::PropertyKeys::baseGroupLabel);
    if (label == set.properties().end()) return nullptr;
    const auto base = setsByKey_.find(label->second);
    return base == setsByKey_.end() ? nullptr : base->second;
  }

  /// Without recursion: a schema decides how deep the tree is.
  void addWithDerived(const MetaMetadataSet& root) {
    std::vector<SetTreeEntry> waiting{{&root, 0, 0}};
    while (!waiting.empty()) {
      const SetTreeEntry entry = waiting.back();
      waiting.pop_back();
      if (!added_.insert(entry.set).second) continue;
      entries_.push_back(entry);
      const auto derived = derived_.find(entry.set);
      if (derived == derived_.end()) continue;
      // The last one pushed comes first.
      for (auto set = derived->second.rbegin(); set != derived->second.rend(); ++set) {
        waiting.push_back({*set, entry.depth + 1, inherited(*entry.set, **set)});
      }
    }
  }

  static std::size_t inherited(const MetaMetadataSet& base, const MetaMetadataSet& set) {
    const auto& own = base.metaAttributes();
    const auto& all = set.metaAttributes();
    const auto sameElement = [](const MetaMetadataSet::Attribute& a, const MetaMetadataSet::Attribute& b) {
      return &a->metaElement() == &b->metaElement();
    };
    const bool allInherited = own.size() <= all.size() && std::equal(own.begin(), own.end(), all.begin(), sameElement);
    return allInherited ? own.size() : 0;
  }

  std::vector<const MetaMetadataSet*> sets_;
  std::map<Templates::WideString, const MetaMetadataSet*> setsByKey_;
  std::map<const MetaMetadataSet*, std::vector<const MetaMetadataSet*>> derived_;
  std::set<const MetaMetadataSet*> added_;
  std::vector<SetTreeEntry> entries_;
};

}  // namespace

std::vector<SetTreeEntry> setTree(const Dictionary& dictionary) {
  return TreeBuilder(dictionary).build();
}

}  // namespace MXF::Tessel::Tool
