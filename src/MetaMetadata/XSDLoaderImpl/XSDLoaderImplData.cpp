// The state that both passes work on, and how its parser is made.

#include "XSDLoaderImplData.h"

#include <Initializer.h>
#include <Platform/malloc_alloc.h>
#include <XMLUtils/Initializer.h>

#include <xercesc/dom/DOMImplementationLS.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

XMLUtils::Released<xercesc::DOMLSParser> createParser() {
  xercesc::DOMImplementation& implementation = XMLUtils::Initializer::instance().domImplementation();
  return XMLUtils::Released<xercesc::DOMLSParser>(implementation.createLSParser(
      xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr, xercesc::XMLPlatformUtils::fgMemoryManager, nullptr));
}

XSDLoaderImplData::XSDLoaderImplData() : parser(createParser()) {
  Initializer::instance();
}

void* XSDLoaderImplData::operator new(std::size_t size) {
  return Platform::malloc_alloc::allocate(size);
}
void XSDLoaderImplData::operator delete(void* block, std::size_t size) noexcept {
  Platform::malloc_alloc::deallocate(block, size);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
