#pragma once

#include <MetaMetadata/Holders.h>
#include <MetaMetadata/MetaElement.h>

/// The four concrete element classes, by whether the element is a reference and whether it is a collection.
namespace MXF::Tessel::MetaMetadata {

/// One value.
class TESSELMXF_MODEL_API MetaSimpleElement : public MetaElement, public MetaValueHolder {
 public:
  /// @param label     copied.
  /// @param dataType  type of the value.
  MetaSimpleElement(const Types::UniversalLabel& label, Types::Identifiers::Identifier dataType)
      : MetaElement(label, dataType) {}
  MetaSimpleElement(const MetaSimpleElement&) = default;
  ~MetaSimpleElement() override;
  void accept(Visitors::NonConstMetaElementVisitor& visitor) override;
  void accept(Visitors::MetaElementVisitor& visitor) const override;
  using MetaElement::operator=;
  using MetaValueHolder::operator=;
  /// Takes over a copy of the other element's properties; what is fixed at construction stays.
  virtual MetaSimpleElement& operator=(const MetaSimpleElement& other);
};

/// An array or batch of values.
class TESSELMXF_MODEL_API MetaCollection : public MetaCollectionElement, public MetaValueHolder {
 public:
  /// @param label        copied.
  /// @param limits       how many items there may be.
  /// @param dataType     the collection kind, Array or Batch.
  /// @param dataSubType  type of the items.
  MetaCollection(const Types::UniversalLabel& label, CollectionSizeLimits limits,
                 Types::Identifiers::Identifier dataType, Types::Identifiers::Identifier dataSubType)
      : MetaCollectionElement(label, limits, dataType, dataSubType) {}
  MetaCollection(const MetaCollection&) = default;
  ~MetaCollection() override;
  void accept(Visitors::NonConstMetaElementVisitor& visitor) override;
  void accept(Visitors::MetaElementVisitor& visitor) const override;
  using MetaCollectionElement::operator=;
  using MetaValueHolder::operator=;
  /// Takes over a copy of the other element's properties; what is fixed at construction stays.
  virtual MetaCollection& operator=(const MetaCollection& other);
};

/// One strong or weak reference to a set.
class TESSELMXF_MODEL_API MetaReferenceElement : public MetaElement, public MetaReferenceHolder {
 public:
  /// @param label        copied.
  /// @param allowedSets  keys of the sets that it may point at; copied.
  /// @param dataType     StrongReference or WeakReference.
  MetaReferenceElement(const Types::UniversalLabel& label, const Keys& allowedSets,
                       Types::Identifiers::Identifier dataType)
      : MetaElement(label, dataType), MetaReferenceHolder(allowedSets) {}
  MetaReferenceElement(const MetaReferenceElement&) = default;
  ~MetaReferenceElement() override;
  void accept(Visitors::NonConstMetaElementVisitor& visitor) override;
  void accept(Visitors::MetaElementVisitor& visitor) const override;
  using MetaElement::operator=;
  using MetaReferenceHolder::operator=;
  /// Takes over a copy of the other element's properties and allowed sets; what is fixed at construction stays.
  virtual MetaReferenceElement& operator=(const MetaReferenceElement& other);
};

/// An array or batch of references to sets.
class TESSELMXF_MODEL_API MetaReferenceCollection : public MetaCollectionElement, public MetaReferenceHolder {
 public:
  /// @param label        copied.
  /// @param allowedSets  keys of the sets that the items may point at; copied.
  /// @param limits       how many items there may be.
  /// @param dataType     the collection kind, Array or Batch.
  /// @param dataSubType  StrongReference or WeakReference.
  MetaReferenceCollection(const Types::UniversalLabel& label, CollectionSizeLimits limits, const Keys& allowedSets,
                          Types::Identifiers::Identifier dataType, Types::Identifiers::Identifier dataSubType)
      : MetaCollectionElement(label, limits, dataType, dataSubType), MetaReferenceHolder(allowedSets) {}
  MetaReferenceCollection(const MetaReferenceCollection&) = default;
  ~MetaReferenceCollection() override;
  void accept(Visitors::NonConstMetaElementVisitor& visitor) override;
  void accept(Visitors::MetaElementVisitor& visitor) const override;
  using MetaCollectionElement::operator=;
  using MetaReferenceHolder::operator=;
  /// Takes over a copy of the other element's properties and allowed sets; what is fixed at construction stays.
  virtual MetaReferenceCollection& operator=(const MetaReferenceCollection& other);
};

}  // namespace MXF::Tessel::MetaMetadata
