#include "DeclarationOrigins.h"

#include <XMLUtils/SourcePosition.h>

namespace MXF::Tessel::MetaMetadata::Loading {

Utils::SourceLocation originOf(const XSDLoaderImplData& data, const xercesc::DOMElement& declaration) {
  const auto path = data.pathByDocument.find(declaration.getOwnerDocument());
  if (path == data.pathByDocument.end()) return {};
  const XMLUtils::SourcePosition position = XMLUtils::positionOf(declaration);
  return {path->second, position.line, position.column};
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
