#pragma once

#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/MetaElement.h>
#include <MetaMetadata/MetaMetadataSet.h>

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

namespace MXF::Tessel::Tool {

/// What can be asked of a dictionary only the other way round: who uses an element, who refers to a set, who derives
/// from it. Built once, in time proportional to the dictionary. All pointers are into the dictionary, which outlives
/// the index and does not change meanwhile. All lists are in the dictionary's order, so that of keys and labels.
class DictionaryIndex {
 public:
  using Element = MetaMetadata::MetaElement;
  using Set = MetaMetadata::MetaMetadataSet;
  using Elements = std::vector<const Element*>;
  using Sets = std::vector<const Set*>;

  /// A set's use of an element.
  struct Use {
    const Set* set;
    std::size_t attribute;  ///< Position among the set's attributes.
    bool isInherited;       ///< The attribute is its base's.
  };
  using Uses = std::vector<Use>;

  explicit DictionaryIndex(const MetaMetadata::Dictionary& dictionary);

  const MetaMetadata::Dictionary& dictionary() const { return dictionary_; }
  /// All elements, and all sets.
  const Elements& elements() const { return elements_; }
  const Sets& sets() const { return sets_; }

  /// The attributes that are of this element, inherited ones included.
  const Uses& usesOf(const Element& element) const;
  /// The elements that may refer to this set.
  const Elements& referencesTo(const Set& set) const;
  /// The sets that an element may refer to; empty for one that is no reference. Keys of sets that the dictionary does
  /// not hold are left out.
  Sets targetsOf(const Element& element) const;

  /// The set that this one is derived from; null when it has no base or the dictionary does not hold it.
  const Set* baseOf(const Set& set) const;
  /// The key of the set's base, as text, when the dictionary does not hold that base.
  std::optional<Templates::WideString> missingBaseOf(const Set& set) const;
  /// The set's bases, its own base first. Ends where a set would come a second time.
  Sets basesOf(const Set& set) const;
  /// The set and its bases: what refers to any of them may refer to the set.
  Sets withBasesOf(const Set& set) const;
  /// The key of the base that ends the chain since the dictionary does not hold it, as text.
  std::optional<Templates::WideString> endOfBasesOf(const Set& set) const;
  /// The sets derived from this one directly.
  const Sets& derivedFrom(const Set& set) const;
  /// How many of the set's attributes, the first ones, are its base's.
  std::size_t inheritedAttributes(const Set& set) const;
  /// The set that an attribute comes from: the set itself, or the base that it is inherited from.
  /// @param attribute  position among the set's attributes.
  const Set& declaringSet(const Set& set, std::size_t attribute) const;

 private:
  void indexElements();
  void indexSets();

  const MetaMetadata::Dictionary& dictionary_;
  Elements elements_;
  Sets sets_;
  std::map<Templates::WideString, const Set*> setsByKeyText_;
  std::map<const Element*, Uses> uses_;
  std::map<const Set*, Elements> references_;
  std::map<const Set*, Sets> derived_;
};

/// The property of an element, set or attribute, or null when it has none.
const Templates::WideString* findProperty(const MetaMetadata::PropertyMap& map, const wchar_t* key);

}  // namespace MXF::Tessel::Tool
