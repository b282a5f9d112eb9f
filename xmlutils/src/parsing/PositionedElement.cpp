#include "PositionedElement.h"

namespace MXF::Tessel::XMLUtils {

SourcePosition positionOf(const xercesc::DOMElement& element) {
  const auto* positioned = dynamic_cast<const PositionedElement*>(&element);
  return positioned != nullptr ? positioned->position() : SourcePosition();
}

}  // namespace MXF::Tessel::XMLUtils
