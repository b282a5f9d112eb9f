#pragma once

#include <MetaMetadata/AttributeRequiredStatus.h>
#include <MetaMetadata/MetaElement.h>
#include <MetaMetadata/PropertyMap.h>
#include <Templates/auto_ptr.h>
#include <Types/BaseType.h>
#include <Types/LocalTag.h>

#include <optional>

namespace MXF::Tessel::MetaMetadata {

class MetaAttribute;

/// Asks an attribute for its class.
class TESSELMXF_MODEL_API AbstractMetaAttributeVisitor {
 public:
  virtual ~AbstractMetaAttributeVisitor();
  /// Called by the attribute's accept(); the attribute is borrowed for the call.
  virtual void visit(const MetaAttribute& attribute) = 0;
};

/// Anything a set can have as an attribute.
class TESSELMXF_MODEL_API AbstractMetaAttribute {
 public:
  virtual ~AbstractMetaAttribute();
  /// Calls the visitor's overload for the concrete class.
  virtual void accept(AbstractMetaAttributeVisitor& visitor) const = 0;

 protected:
  AbstractMetaAttribute() = default;
  AbstractMetaAttribute(const AbstractMetaAttribute&) = default;
  AbstractMetaAttribute& operator=(const AbstractMetaAttribute&) = default;
};

/// Use of an element in a set: which element, whether it must be there, the value that means "not known" or the like,
/// and its local tag.
class TESSELMXF_MODEL_API MetaAttribute : public AbstractMetaAttribute, public PropertyMap {
 public:
  /// @param element             stays its owner's, as a rule the dictionary's, and outlives the attribute.
  /// @param status              whether the element must be there in the set.
  /// @param distinguishedValue  taken over; empty when there is none.
  /// @param localTag            copied; null when there is none.
  MetaAttribute(const MetaElement& element, AttributeRequiredStatus::Status status,
                Templates::auto_ptr<const Types::BaseType> distinguishedValue, const Types::LocalTag* localTag);
  MetaAttribute(const MetaAttribute&) = delete;
  MetaAttribute& operator=(const MetaAttribute&) = delete;
  using PropertyMap::operator=;
  ~MetaAttribute() override;

  void accept(AbstractMetaAttributeVisitor& visitor) const override;

  /// The element that is used; stays its owner's.
  const MetaElement& metaElement() const { return element_; }
  /// Whether the element must be there in the set.
  AttributeRequiredStatus::Status requiredStatus() const { return status_; }
  /// Null when there is none; stays the attribute's.
  const Types::BaseType* distinguishedValue() const { return distinguishedValue_.get(); }
  /// Null when there is none; stays the attribute's.
  const Types::LocalTag* localTag() const { return localTag_ ? &*localTag_ : nullptr; }

 private:
  const MetaElement& element_;
  AttributeRequiredStatus::Status status_;
  Templates::auto_ptr<const Types::BaseType> distinguishedValue_;
  std::optional<Types::LocalTag> localTag_;
};

}  // namespace MXF::Tessel::MetaMetadata
