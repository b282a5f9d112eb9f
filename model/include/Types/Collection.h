#pragma once

#include <Templates/Containers.h>
#include <Types/BaseType.h>

namespace MXF::Tessel::Types {

/// Ordered list of simple values, all of one class in well-formed metadata. Owns its items.
class TESSELMXF_MODEL_API Collection : public BaseType {
 public:
  Collection& operator=(const Collection&) = delete;
  ~Collection() override;

  /// Item count and item length, four bytes each, then the items (SMPTE ST 377-1, Array and Batch). The item length is
  /// that of the items, or elementSize() when there is none.
  /// @throws Exceptions::InvalidValue  the items differ in length; nothing is written.
  void serialize(DataIO::DataSink& sink) const override;
  /// Bytes that serialize() writes: 8, and the length of each item.
  virtual unsigned int serializedSize() const;
  /// A deep copy that the caller owns.
  virtual Templates::auto_ptr<Collection> clone() const = 0;

  /// Adds an item at the end and takes it over.
  /// @throws Exceptions::InvalidValue  the pointer is empty: "A collection cannot hold an empty item."; the collection
  ///         is unchanged.
  void append(Templates::auto_ptr<SimpleDataType> item);

  /// Size in bytes of one item, as given at construction; not checked against the items.
  int elementSize() const { return elementSize_; }
  /// Number of items.
  std::size_t size() const { return items_.size(); }
  /// The item at a position, which stays the collection's.
  /// @throws Exceptions::NotFound  the position is size() or more.
  const SimpleDataType& at(std::size_t position) const;

 protected:
  /// @param elementSize  size in bytes of one item.
  explicit Collection(int elementSize) : elementSize_(elementSize) {}
  /// Copies the items too.
  Collection(const Collection& other);

 private:
  int elementSize_;
  Templates::vector<Templates::auto_ptr<SimpleDataType>> items_;
};

/// Collection whose items are in a meaningful order.
class TESSELMXF_MODEL_API Array : public Collection {
 public:
  /// @param elementSize  size in bytes of one item.
  explicit Array(int elementSize) : Collection(elementSize) {}
  ~Array() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  Templates::auto_ptr<Collection> clone() const override;
};

/// Collection whose items are in no particular order; the order they were added in is kept all the same.
class TESSELMXF_MODEL_API Batch : public Collection {
 public:
  /// @param elementSize  size in bytes of one item.
  explicit Batch(int elementSize) : Collection(elementSize) {}
  ~Batch() override;
  void accept(Visitors::NonConstVisitor& visitor) override;
  void accept(Visitors::Visitor& visitor) const override;
  Templates::auto_ptr<Collection> clone() const override;
};

}  // namespace MXF::Tessel::Types
