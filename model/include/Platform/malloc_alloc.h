#pragma once

#include <Platform/Export.h>

#include <cstddef>

namespace MXF::Tessel::Platform {

/// The one door to the heap for the model's objects and for every buffer of its containers. Both sides of a library
/// boundary allocate and free through it, so that memory always returns to the heap it came from. Thread-safe.
class TESSELMXF_MODEL_API malloc_alloc {
 public:
  /// @param bytes  size of the block; 0 gives a valid block as well.
  /// @return a block aligned for every fundamental type, to be given back with deallocate().
  /// @throws std::bad_alloc  the heap is exhausted.
  static void* allocate(std::size_t bytes);

  /// @param block  what allocate() returned, or null (then nothing happens).
  /// @param bytes  the size that was asked for.
  static void deallocate(void* block, std::size_t bytes) noexcept;
};

}  // namespace MXF::Tessel::Platform
