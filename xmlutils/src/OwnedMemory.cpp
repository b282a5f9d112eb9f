#include "OwnedMemory.h"

#include <xercesc/util/OutOfMemoryException.hpp>

#include <cstddef>
#include <limits>
#include <new>

namespace MXF::Tessel::XMLUtils {

namespace {

constexpr std::size_t alignment = alignof(std::max_align_t);

/// Room for a link that leaves what follows it aligned for every type.
template <class Link>
constexpr std::size_t roomFor = (sizeof(Link) + alignment - 1) / alignment* alignment;

}  // namespace

OwnedMemory::~OwnedMemory() {
  for (Link* link = blocks_.next; link != &blocks_;) {
    Link* next = link->next;
    source_.deallocate(link);
    link = next;
  }
}

void* OwnedMemory::allocate(XMLSize_t size) {
  if (size == watchedSize_) ++watchedBlocks_;
  try {
    if (size > std::numeric_limits<XMLSize_t>::max() - roomFor<Link>) throw xercesc::OutOfMemoryException();
    auto* block = static_cast<std::byte*>(source_.allocate(roomFor<Link> + size));
    Link* link = new (block) Link{blocks_.previous, &blocks_};
    link->previous->next = link;
    blocks_.previous = link;
    return block + roomFor<Link>;
  } catch (const xercesc::OutOfMemoryException&) {
    hasRunOut_ = true;
    throw std::bad_alloc();
  }
}

void OwnedMemory::deallocate(void* memory) {
  if (memory == nullptr) return;
  std::byte* block = static_cast<std::byte*>(memory) - roomFor<Link>;
  auto* link = reinterpret_cast<Link*>(block);
  link->previous->next = link->next;
  link->next->previous = link->previous;
  source_.deallocate(block);
}

}  // namespace MXF::Tessel::XMLUtils
