#pragma once

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMTypeInfo.hpp>

namespace MXF::Tessel::XMLUtils {

/// Whether a DTD or a schema gives the attribute a type. Queries compare such an attribute by its typed value, all others
/// by their text.
inline bool hasType(const xercesc::DOMAttr& attribute) {
  const xercesc::DOMTypeInfo* type = attribute.getSchemaTypeInfo();
  return type != nullptr && type->getTypeName() != nullptr;
}

}  // namespace MXF::Tessel::XMLUtils
