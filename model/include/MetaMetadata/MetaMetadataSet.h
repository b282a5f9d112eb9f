#pragma once

#include <KLV/Key.h>
#include <MetaMetadata/MetaAttribute.h>
#include <MetaMetadata/PropertyMap.h>
#include <Templates/Containers.h>
#include <Templates/SharedPtr.h>

namespace MXF::Tessel::MetaMetadata {

/// Definition of a metadata set: its key, fixed at construction, its attributes in order, and its properties. A copy
/// shares the attributes.
class TESSELMXF_MODEL_API MetaMetadataSet : public PropertyMap {
 public:
  /// An attribute; copies of a set share it.
  using Attribute = Templates::SharedPtr<MetaAttribute, Templates::LockedCounter>;
  /// Attributes in the order of the set.
  using Attributes = Templates::vector<Attribute>;

  /// @param key  copied.
  explicit MetaMetadataSet(const KLV::Key& key) : key_(key) {}
  MetaMetadataSet(const MetaMetadataSet&) = default;
  MetaMetadataSet& operator=(const MetaMetadataSet&) = delete;
  using PropertyMap::operator=;
  ~MetaMetadataSet() override;

  /// The key that names the set in a file and in the dictionary; valid as long as the set.
  const KLV::Key& key() const { return key_; }

  /// Adds an attribute at the end; the set shares its ownership.
  /// @throws Exceptions::InvalidValue  the pointer is empty: "A set cannot hold an empty attribute."
  void addMetaAttribute(Attribute attribute);
  /// The attributes in the order added: those of base groups first, then the set's own.
  const Attributes& metaAttributes() const { return attributes_; }

 private:
  KLV::Key key_;
  Attributes attributes_;
};

}  // namespace MXF::Tessel::MetaMetadata
