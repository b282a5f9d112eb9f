#pragma once

#include <Templates/Containers.h>
#include <XMLUtils/Export.h>

#include <xercesc/util/XercesDefs.hpp>

namespace MXF::Tessel::XMLUtils {

/// Fills the target with the text, one code unit per character.
/// @param text    zero-terminated; null counts as empty.
/// @param target  what it held before is dropped.
TESSELMXF_XMLUTILS_API void utf16ToWstring(const XMLCh* text, Templates::WideString& target);

/// The same as a result.
inline Templates::WideString toWstring(const XMLCh* text) {
  Templates::WideString target;
  utf16ToWstring(text, target);
  return target;
}

}  // namespace MXF::Tessel::XMLUtils
