// The exported class: every operation goes to the private record.

#include "XSDDictionaryLoader2Impl.h"

#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Platform/malloc_alloc.h>

namespace MXF::Tessel::MetaMetadata::Loading {

using Platform::malloc_alloc;
using Templates::WideString;

XSDDictionaryLoader2::XSDDictionaryLoader2() : impl_(new XSDDictionaryLoader2Impl) {}
XSDDictionaryLoader2::~XSDDictionaryLoader2() = default;

XSDDictionaryLoader2& XSDDictionaryLoader2::operator=(const XSDDictionaryLoader2& other) {
  if (this != &other) *impl_ = *other.impl_;
  return *this;
}

void* XSDDictionaryLoader2::operator new(std::size_t size) {
  return malloc_alloc::allocate(size);
}
void* XSDDictionaryLoader2::operator new[](std::size_t size) {
  return malloc_alloc::allocate(size);
}
void* XSDDictionaryLoader2::operator new(std::size_t /*size*/, void* where) noexcept {
  return where;
}
void* XSDDictionaryLoader2::operator new[](std::size_t /*size*/, void* where) noexcept {
  return where;
}
void XSDDictionaryLoader2::operator delete(void* block, std::size_t size) noexcept {
  malloc_alloc::deallocate(block, size);
}
void XSDDictionaryLoader2::operator delete[](void* block, std::size_t size) noexcept {
  malloc_alloc::deallocate(block, size);
}
void XSDDictionaryLoader2::operator delete(void* /*block*/, void* /*where*/) noexcept {}
void XSDDictionaryLoader2::operator delete[](void* /*block*/, void* /*where*/) noexcept {}

void XSDDictionaryLoader2::loadMultiplex(const WideString& path) {
  impl_->loadMultiplex(path);
}
void XSDDictionaryLoader2::loadDictionary(const WideString& path, Dictionary& dictionary) {
  impl_->loadDictionary(path, dictionary);
}
void XSDDictionaryLoader2::loadScheme(const WideString& path, Dictionary& dictionary) {
  impl_->loadScheme(path, dictionary);
}
WideString XSDDictionaryLoader2::getTargetNamespace() const {
  return impl_->getTargetNamespace();
}

void XSDDictionaryLoader2::loadAbstractGroups(bool load) {
  impl_->loader().loadAbstractGroups(load);
}
void XSDDictionaryLoader2::loadMetaElementDocumentation(bool load) {
  impl_->loader().loadMetaElementDocumentation(load);
}
void XSDDictionaryLoader2::loadMetaElementLengthDescription(bool load) {
  impl_->loader().loadMetaElementLengthDescription(load);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
