#pragma once

#include <XMLUtils/SourcePosition.h>

#include <xercesc/dom/impl/DOMElementNSImpl.hpp>

namespace MXF::Tessel::XMLUtils {

/// An element that remembers where it begins.
class PositionedElement : public xercesc::DOMElementNSImpl {
 public:
  PositionedElement(SourcePosition position, xercesc::DOMDocument* owner, const XMLCh* namespaceUri,
                    const XMLCh* prefix, const XMLCh* localName, const XMLCh* qualifiedName)
      : DOMElementNSImpl(owner, namespaceUri, prefix, localName, qualifiedName), position_(position) {}
  PositionedElement(const PositionedElement&) = delete;
  PositionedElement& operator=(const PositionedElement&) = delete;

  SourcePosition position() const { return position_; }

 private:
  SourcePosition position_;
};

}  // namespace MXF::Tessel::XMLUtils
