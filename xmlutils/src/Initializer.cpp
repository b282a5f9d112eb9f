#include <XMLUtils/Initializer.h>

#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xqilla/utils/XQillaPlatformUtils.hpp>

namespace MXF::Tessel::XMLUtils {

namespace {

/// The feature string under which XQilla registers its DOM implementation.
constexpr XMLCh xpath2Features[] = u"XPath2 3.0";

}  // namespace

Initializer& Initializer::instance() {
  static Initializer initializer;
  return initializer;
}

Initializer::Initializer() {
  XQillaPlatformUtils::initialize();
  implementation_ = xercesc::DOMImplementationRegistry::getDOMImplementation(xpath2Features);
}

Initializer::~Initializer() {
  XQillaPlatformUtils::terminate();
}

}  // namespace MXF::Tessel::XMLUtils
