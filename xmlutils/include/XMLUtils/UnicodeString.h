#pragma once

#include <Templates/Containers.h>
#include <XMLUtils/Export.h>

#include <xercesc/util/XercesDefs.hpp>

namespace MXF::Tessel::XMLUtils {

/// A text as XML text (UTF-16), copied from a wide or narrow one. May be made before Xerces-C is initialised.
class TESSELMXF_XMLUTILS_API UnicodeString {
 public:
  /// @param text  zero-terminated UTF-16 code units; a character above FFFF hex is stored as its surrogate pair.
  explicit UnicodeString(const wchar_t* text);
  /// @param text  zero-terminated UTF-8.
  explicit UnicodeString(const char* text);
  UnicodeString(const UnicodeString&) = default;
  UnicodeString& operator=(const UnicodeString&) = default;
  ~UnicodeString();

  /// The text, zero-terminated; valid while this object lives and is not assigned to.
  const XMLCh* utf16() const { return text_.c_str(); }

 private:
  Templates::basic_string<XMLCh> text_;
};

}  // namespace MXF::Tessel::XMLUtils
