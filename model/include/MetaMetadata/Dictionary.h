#pragma once

#include <KLV/Key.h>
#include <MetaMetadata/MetaElement.h>
#include <MetaMetadata/MetaMetadataSet.h>
#include <Platform/Export.h>
#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>
#include <Types/LocalTag.h>
#include <Types/UID.h>

#include <cstddef>

namespace MXF::Tessel::MetaMetadata {

/// Where sets and local tags are registered and looked up.
class TESSELMXF_MODEL_API MetaMetadataSetRegistry {
 public:
  virtual ~MetaMetadataSetRegistry();

  /// Records that the tag stands for the element with that label in local sets (SMPTE ST 377-1). The same pair again
  /// changes nothing; a second tag of a label, or a second label of a tag, is kept beside the first. Both are copied.
  virtual void addLocalTag(const Types::LocalTag& tag, const Types::UniversalLabel& label) = 0;
  /// All tags recorded for the label, in tag order.
  virtual Templates::vector<Types::LocalTag> localTagsOf(const Types::UniversalLabel& label) const = 0;
  /// The set with that key, or null; stays the registry's and is valid as long as the registry.
  virtual const MetaMetadataSet* findMetaMetadataSet(const KLV::Key& key) const = 0;
  /// Registers a copy of a set under its key.
  ///
  /// @param key  16-byte set key (SMPTE ST 377-1, group keys).
  /// @param set  copied; the caller keeps and deletes its own. The copy shares the attributes.
  /// @throws Exceptions::MetaMetadataSetAlreadyLoaded  the registry holds a set with this key; it is unchanged then.
  ///         The message is the key, 16 upper-case hexadecimal bytes joined by dots.
  virtual void addMetaMetadataSet(const KLV::Key& key, const MetaMetadataSet& set) = 0;
};

/// Where elements are registered.
class TESSELMXF_MODEL_API MetaElementRegistry {
 public:
  virtual ~MetaElementRegistry();

  /// Registers an element under its label and takes it over, also when the call fails (it is deleted then).
  /// @throws Exceptions::MetaElementAlreadyLoaded  the registry holds an element with this label; it is unchanged then.
  ///         The message is the label, 16 upper-case hexadecimal bytes joined by dots.
  /// @throws Exceptions::InvalidValue  the pointer is empty: "A dictionary cannot hold an empty element."
  virtual void addMetaElement(const Types::UniversalLabel& label, Templates::auto_ptr<MetaElement> element) = 0;
};

/// An MXF meta-dictionary: elements by label, sets by key, and the local tags of elements.
///
/// Threads: one thread changes a dictionary; while nobody does, any number of threads may read it at once. Reading is every
/// operation that is const, here and on the elements, sets, attributes and values, visitors and iterators of a thread's own,
/// and copying a set, whose copies may be destroyed on any thread. What other threads changed before must have reached the
/// readers, as by joining the loading thread or by a lock.
class TESSELMXF_MODEL_API Dictionary : public MetaMetadataSetRegistry, public MetaElementRegistry {
 public:
  /// Gives pairs of label and element.
  using MetaElementIterator = Templates::_Rb_tree_iterator<Templates::pair<const Types::UniversalLabel, MetaElement*>>;
  /// The same, for reading only.
  using MetaElementConstIterator =
      Templates::_Rb_tree_const_iterator<Templates::pair<const Types::UniversalLabel, MetaElement*>>;
  /// Gives pairs of key and set.
  using MetaMetadataSetIterator = Templates::_Rb_tree_const_iterator<Templates::pair<const KLV::Key, MetaMetadataSet>>;
  /// Pairs of local tag and label, by tag, then label.
  using LocalTags = Templates::set<Templates::pair<Types::LocalTag, Types::UniversalLabel>>;

  Dictionary();
  ~Dictionary() override;
  Dictionary(const Dictionary&) = delete;
  Dictionary& operator=(const Dictionary&) = delete;

  void addLocalTag(const Types::LocalTag& tag, const Types::UniversalLabel& label) override;
  Templates::vector<Types::LocalTag> localTagsOf(const Types::UniversalLabel& label) const override;
  const MetaMetadataSet* findMetaMetadataSet(const KLV::Key& key) const override;
  void addMetaMetadataSet(const KLV::Key& key, const MetaMetadataSet& set) override;
  void addMetaElement(const Types::UniversalLabel& label, Templates::auto_ptr<MetaElement> element) override;

  ///@{
  /// The elements as pairs of label and element, in label order. They stay the dictionary's. Changing an element counts
  /// as changing the dictionary.
  MetaElementIterator metaElementBegin() { return elements_.begin(); }
  MetaElementIterator metaElementEnd() { return elements_.end(); }
  MetaElementConstIterator metaElementBegin() const { return elements_.begin(); }
  MetaElementConstIterator metaElementEnd() const { return elements_.end(); }
  ///@}
  /// The element with that label, or null; stays the dictionary's and is valid as long as it.
  const MetaElement* findMetaElement(const Types::UniversalLabel& label) const;

  ///@{
  /// The sets as pairs of key and set, in key order. They stay the dictionary's.
  MetaMetadataSetIterator metaMetadataSetBegin() const { return sets_.begin(); }
  MetaMetadataSetIterator metaMetadataSetEnd() const { return sets_.end(); }
  ///@}

  /// All pairs of local tag and label, by tag, then label.
  const LocalTags& localTags() const { return localTags_; }

 private:
  // Elements first: the sets' attributes refer to them and go before them.
  Templates::map<Types::UniversalLabel, MetaElement*> elements_;
  Templates::map<KLV::Key, MetaMetadataSet> sets_;
  LocalTags localTags_;
};

}  // namespace MXF::Tessel::MetaMetadata
