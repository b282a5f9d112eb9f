#include "xpath/XPathImplementation.h"

#include <XMLUtils/Initializer.h>

#include <xqilla/utils/XQillaPlatformUtils.hpp>

namespace MXF::Tessel::XMLUtils {

Initializer& Initializer::instance() {
  static Initializer initializer;
  return initializer;
}

Initializer::Initializer() {
  XQillaPlatformUtils::initialize();
  implementation_ = std::make_unique<XPath::XPathImplementation>();
}

Initializer::~Initializer() {
  implementation_.reset();
  XQillaPlatformUtils::terminate();
}

}  // namespace MXF::Tessel::XMLUtils
