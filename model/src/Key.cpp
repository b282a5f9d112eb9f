// Keys of sets.

#include "HexText.h"

#include <Exceptions/Exceptions.h>
#include <KLV/Key.h>
#include <Platform/malloc_alloc.h>

namespace MXF::Tessel::KLV {

Key::Key(const wchar_t* text, Types::StringRepresentationEncodingType /*encoding*/) : bytes_{} {
  if (!Types::HexText::parseDotted(text, bytes_.data(), bytes_.size())) {
    throw Exceptions::InvalidULDesignator(text, "Key", __LINE__);
  }
}

Templates::WideString Key::toString(Types::StringRepresentationEncodingType /*encoding*/) const {
  return Types::HexText::dotted(bytes_.data(), bytes_.size());
}

void* Key::operator new(std::size_t size) {
  return Platform::malloc_alloc::allocate(size);
}
void Key::operator delete(void* block, std::size_t size) noexcept {
  Platform::malloc_alloc::deallocate(block, size);
}

}  // namespace MXF::Tessel::KLV
