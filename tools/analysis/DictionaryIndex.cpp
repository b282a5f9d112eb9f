#include "analysis/DictionaryIndex.h"

#include "text/IdentifierForm.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>

#include <algorithm>
#include <set>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaMetadataSet;

namespace PropertyKeys = MetaMetadata::PropertyKeys;

namespace {

template <class Key, class List>
const List& listOf(const std::map<Key, List>& lists, Key key) {
  static const List none;
  const auto found = lists.find(key);
  return found == lists.end() ? none : found->second;
}

}  // namespace

DictionaryIndex::DictionaryIndex(const MetaMetadata::Dictionary& dictionary) : dictionary_(dictionary) {
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    elements_.push_back(entry->second);
  }
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    sets_.push_back(&entry->second);
    setsByKeyText_.emplace(entry->first.toString(textForm), &entry->second);
  }
  indexElements();
  indexSets();
}

void DictionaryIndex::indexElements() {
  for (const Element* element : elements_) {
    for (const Set* set : targetsOf(*element)) references_[set].push_back(element);
  }
}

void DictionaryIndex::indexSets() {
  for (const Set* set : sets_) {
    if (const Set* base = baseOf(*set)) derived_[base].push_back(set);
    const std::size_t inherited = inheritedAttributes(*set);
    const auto& attributes = set->metaAttributes();
    for (std::size_t i = 0; i < attributes.size(); ++i) {
      uses_[&attributes[i]->metaElement()].push_back({set, i, i < inherited});
    }
  }
}

const DictionaryIndex::Uses& DictionaryIndex::usesOf(const Element& element) const {
  return listOf(uses_, &element);
}

const DictionaryIndex::Elements& DictionaryIndex::referencesTo(const Set& set) const {
  return listOf(references_, &set);
}

const DictionaryIndex::Sets& DictionaryIndex::derivedFrom(const Set& set) const {
  return listOf(derived_, &set);
}

DictionaryIndex::Sets DictionaryIndex::targetsOf(const Element& element) const {
  MetaMetadata::Visitors::GetMetaElementVisitor<MetaMetadata::MetaReferenceHolder> visitor;
  element.accept(visitor);
  Sets targets;
  if (visitor.get() == nullptr) return targets;
  for (const KLV::Key& key : visitor.get()->allowedMetadataSets()) {
    if (const Set* set = dictionary_.findMetaMetadataSet(key)) targets.push_back(set);
  }
  return targets;
}

const MetaMetadataSet* DictionaryIndex::baseOf(const Set& set) const {
  const Templates::WideString* key = findProperty(set, PropertyKeys::baseGroupLabel);
  const auto base = key == nullptr ? setsByKeyText_.end() : setsByKeyText_.find(*key);
  return base == setsByKeyText_.end() ? nullptr : base->second;
}

std::optional<Templates::WideString> DictionaryIndex::missingBaseOf(const Set& set) const {
  const Templates::WideString* key = findProperty(set, PropertyKeys::baseGroupLabel);
  if (key == nullptr || key->empty() || baseOf(set) != nullptr) return std::nullopt;
  return *key;
}

DictionaryIndex::Sets DictionaryIndex::basesOf(const Set& set) const {
  Sets bases;
  std::set<const Set*> met{&set};
  for (const Set* base = baseOf(set); base != nullptr && met.insert(base).second; base = baseOf(*base)) {
    bases.push_back(base);
  }
  return bases;
}

DictionaryIndex::Sets DictionaryIndex::withBasesOf(const Set& set) const {
  Sets sets = basesOf(set);
  sets.insert(sets.begin(), &set);
  return sets;
}

std::optional<Templates::WideString> DictionaryIndex::endOfBasesOf(const Set& set) const {
  return missingBaseOf(*withBasesOf(set).back());
}

std::size_t DictionaryIndex::inheritedAttributes(const Set& set) const {
  const Set* base = baseOf(set);
  if (base == nullptr || base == &set) return 0;
  const auto& own = base->metaAttributes();
  const auto& all = set.metaAttributes();
  const auto sameElement = [](const Set::Attribute& a, const Set::Attribute& b) {
    return &a->metaElement() == &b->metaElement();
  };
  const bool allInherited = own.size() <= all.size() && std::equal(own.begin(), own.end(), all.begin(), sameElement);
  return allInherited ? own.size() : 0;
}

const MetaMetadataSet& DictionaryIndex::declaringSet(const Set& set, std::size_t attribute) const {
  const Set* declaring = &set;
  for (const Set* base : basesOf(set)) {
    if (attribute >= inheritedAttributes(*declaring)) break;
    declaring = base;
  }
  return *declaring;
}

const Templates::WideString* findProperty(const MetaMetadata::PropertyMap& map, const wchar_t* key) {
  const auto property = map.properties().find(key);
  return property == map.properties().end() ? nullptr : &property->second;
}

}  // namespace MXF::Tessel::Tool
