#pragma once

#include <XMLUtils/Export.h>

#include <xercesc/dom/DOMElement.hpp>

#include <cstdint>

namespace MXF::Tessel::XMLUtils {

/// A place in a document, line and column counted from 1 as parsers report them; 0 where it is not known.
struct SourcePosition {
  std::uint32_t line = 0;    ///< From 1.
  std::uint32_t column = 0;  ///< From 1, in UTF-16 code units of the line.
};

/// Where the start tag of an element begins. One that comes from an entity has no place of its own in the document; it
/// counts as beginning directly behind the reference to the entity. Known for elements that loadDocumentFromFile() has parsed, for others not.
TESSELMXF_XMLUTILS_API SourcePosition positionOf(const xercesc::DOMElement& element);

}  // namespace MXF::Tessel::XMLUtils
