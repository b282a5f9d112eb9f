#pragma once

#include <MetaMetadata/PropertyMap.h>
#include <MetaMetadata/Visitors/MetaElementVisitor.h>
#include <Types/Identifiers.h>
#include <Types/UID.h>

#include <limits>

namespace MXF::Tessel::MetaMetadata {

/// Definition of a metadata element: its label and data type, both fixed at construction, and its properties.
///
/// Assignment is virtual here; a class that derives from an element and declares an assignment of its own repeats
/// "using Base::operator=;".
class TESSELMXF_MODEL_API MetaElement : public PropertyMap {
 public:
  ~MetaElement() override;
  using PropertyMap::operator=;
  /// Takes over a copy of the other element's properties; label and data type stay.
  virtual MetaElement& operator=(const MetaElement& other);

  ///@{
  /// Calls the visitor's overload for the concrete class.
  virtual void accept(Visitors::NonConstMetaElementVisitor& visitor) = 0;
  virtual void accept(Visitors::MetaElementVisitor& visitor) const = 0;
  ///@}

  /// The label that names the element wherever it is used; valid as long as the element.
  const Types::UniversalLabel& universalLabel() const { return label_; }
  /// Type of the value, kind of the collection, or strong or weak reference.
  Types::Identifiers::Identifier dataType() const { return dataType_; }

 protected:
  /// @param label     copied.
  /// @param dataType  never changes.
  MetaElement(const Types::UniversalLabel& label, Types::Identifiers::Identifier dataType)
      : label_(label), dataType_(dataType) {}
  MetaElement(const MetaElement&) = default;

 private:
  Types::UniversalLabel label_;
  Types::Identifiers::Identifier dataType_;
};

/// Definition of an element that is a collection: adds the items' data type and how many there may be.
class TESSELMXF_MODEL_API MetaCollectionElement : public MetaElement {
 public:
  /// Smallest and largest number of items. The default allows any number.
  struct CollectionSizeLimits {
    unsigned int minimum = 0;                                         ///< No fewer items.
    unsigned int maximum = std::numeric_limits<unsigned int>::max();  ///< No more items.
  };

  ~MetaCollectionElement() override;
  using MetaElement::operator=;
  /// Takes over a copy of the other element's properties; what is fixed at construction stays.
  virtual MetaCollectionElement& operator=(const MetaCollectionElement& other);

  /// Type of the items.
  Types::Identifiers::Identifier dataSubType() const { return dataSubType_; }
  /// How many items there may be.
  CollectionSizeLimits sizeLimits() const { return limits_; }

 protected:
  /// @param label        copied.
  /// @param limits       how many items there may be.
  /// @param dataType     kind of the collection, Array or Batch.
  /// @param dataSubType  type of the items.
  MetaCollectionElement(const Types::UniversalLabel& label, CollectionSizeLimits limits,
                        Types::Identifiers::Identifier dataType, Types::Identifiers::Identifier dataSubType)
      : MetaElement(label, dataType), dataSubType_(dataSubType), limits_(limits) {}
  MetaCollectionElement(const MetaCollectionElement&) = default;

 private:
  Types::Identifiers::Identifier dataSubType_;
  CollectionSizeLimits limits_;
};

}  // namespace MXF::Tessel::MetaMetadata
