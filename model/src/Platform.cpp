// The allocator.

#include <Platform/TextConversion.h>
#include <Platform/malloc_alloc.h>
#include <Utils/TextConversion.h>

#include <cstdlib>
#include <new>

namespace MXF::Tessel::Platform {

void* malloc_alloc::allocate(std::size_t bytes) {
  void* block = std::malloc(bytes == 0 ? 1 : bytes);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void malloc_alloc::deallocate(void* block, std::size_t /*bytes*/) noexcept {
  std::free(block);
}

Templates::WideString stringToWstring(const char* text) {
  return Utils::stringToWstring(text);
}

}  // namespace MXF::Tessel::Platform
