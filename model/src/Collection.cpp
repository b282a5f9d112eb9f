// Arrays and batches: their items, and the wire form with item count and item length.

#include <Exceptions/Exceptions.h>
#include <Types/Collection.h>
#include <Types/WireForm.h>
#include <Utils/TextConversion.h>

#include <array>
#include <utility>

namespace MXF::Tessel::Types {

namespace {

constexpr std::size_t headerSize = 2 * sizeof(unsigned int);  // item count and item length

}  // namespace

Collection::~Collection() = default;

Collection::Collection(const Collection& other) : BaseType(other), elementSize_(other.elementSize_) {
  items_.reserve(other.items_.size());
  for (const auto& item : other.items_) items_.push_back(item->clone());
}

void Collection::append(Templates::auto_ptr<SimpleDataType> item) {
  if (!item) throw Exceptions::InvalidValue(L"A collection cannot hold an empty item.", "Collection", __LINE__);
  items_.push_back(std::move(item));
}

const SimpleDataType& Collection::at(std::size_t position) const {
  if (position >= items_.size()) {
    const Templates::WideString message =
        L"The collection has no item " + Utils::toDecimal(static_cast<long long>(position));
    throw Exceptions::NotFound(message.c_str(), "Collection", __LINE__);
  }
  return *items_[position];
}

unsigned int Collection::serializedSize() const {
  std::size_t size = headerSize;
  for (const auto& item : items_) size += item->serializedSize();
  return static_cast<unsigned int>(size);
}

void Collection::serialize(DataIO::DataSink& sink) const {
  const unsigned int itemLength =
      items_.empty() ? static_cast<unsigned int>(elementSize_) : items_.front()->serializedSize();
  for (const auto& item : items_) {
    if (item->serializedSize() != itemLength) {
      throw Exceptions::InvalidValue(L"Items of different lengths have no wire form.", "Collection", __LINE__);
    }
  }
  std::array<unsigned char, headerSize> header{};
  BigEndian<unsigned int>::store(header.data(), static_cast<unsigned int>(items_.size()));
  BigEndian<unsigned int>::store(header.data() + sizeof(unsigned int), itemLength);
  sink.write(header.data(), header.size());
  for (const auto& item : items_) item->serialize(sink);
}

Array::~Array() = default;
void Array::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void Array::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<Collection> Array::clone() const {
  return Templates::auto_ptr<Collection>(new Array(*this));
}

Batch::~Batch() = default;
void Batch::accept(Visitors::NonConstVisitor& visitor) {
  visitor.visit(*this);
}
void Batch::accept(Visitors::Visitor& visitor) const {
  visitor.visit(*this);
}
Templates::auto_ptr<Collection> Batch::clone() const {
  return Templates::auto_ptr<Collection>(new Batch(*this));
}

}  // namespace MXF::Tessel::Types
