#pragma once

#include "OwnedMemory.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xqilla/xerces/XercesConfiguration.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

/// What XQilla's contexts are made with; outlives them.
struct QueryEngine {
  OwnedMemory memory{*xercesc::XMLPlatformUtils::fgMemoryManager};
  XercesConfiguration configuration;
};

}  // namespace MXF::Tessel::XMLUtils::XPath
