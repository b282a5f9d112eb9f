#pragma once

#include <cstddef>
#include <limits>
#include <new>

namespace MXF::Tessel::Templates {

/// Lets the standard containers take their memory from an allocator of malloc_alloc's kind: a class with the static
/// operations allocate(bytes) and deallocate(block, bytes).
template <class T, class Allocator>
class StandardAllocator {
 public:
  /// As the allocator requirements name it.
  using value_type = T;

  StandardAllocator() noexcept = default;
  /// All allocators of one kind share its heap.
  template <class U>
  // NOLINTNEXTLINE(google-explicit-constructor): the allocator requirements ask for the implicit conversion.
  StandardAllocator(const StandardAllocator<U, Allocator>& /*other*/) noexcept {}

  // NOLINTBEGIN(bugprone-sizeof-expression): containers of pointers allocate the pointers.
  /// @throws std::bad_alloc  no memory, or more objects than memory can hold.
  T* allocate(std::size_t count) {
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) throw std::bad_array_new_length();
    return static_cast<T*>(Allocator::allocate(count * sizeof(T)));
  }
  /// @param block  what allocate() returned for that count.
  /// @param count  objects that the block has room for.
  void deallocate(T* block, std::size_t count) noexcept { Allocator::deallocate(block, count * sizeof(T)); }
  // NOLINTEND(bugprone-sizeof-expression)

  /// The allocator of another type's objects from the same heap.
  template <class U>
  struct rebind {
    /// That allocator.
    using other = StandardAllocator<U, Allocator>;
  };
};

///@{
/// What one allocator has given any other of its kind can take back.
template <class T, class U, class Allocator>
bool operator==(const StandardAllocator<T, Allocator>& /*a*/, const StandardAllocator<U, Allocator>& /*b*/) noexcept {
  return true;
}

template <class T, class U, class Allocator>
bool operator!=(const StandardAllocator<T, Allocator>& /*a*/, const StandardAllocator<U, Allocator>& /*b*/) noexcept {
  return false;
}
///@}

}  // namespace MXF::Tessel::Templates
