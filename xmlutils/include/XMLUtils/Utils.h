#pragma once

#include <Exceptions/Exceptions.h>
#include <Templates/Containers.h>
#include <XMLUtils/Export.h>

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/UTFDataFormatException.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xqilla/exceptions/XQException.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

/// The exceptions of Xerces-C and XQilla as texts, and as the library's own ParseError.
namespace MXF::Tessel::XMLUtils {

///@{
/// The class, ": " and the exception's text. The class is the one of the parameter, not the object's most derived one;
/// it is written "XQillaException:", "XQException:" or "DOMException:" (with a colon of its own, and the code in
/// parentheses after the text of the last one), and by its qualified name for the other three.
TESSELMXF_XMLUTILS_API Templates::WideString describe(const XQillaException& e);
TESSELMXF_XMLUTILS_API Templates::WideString describe(const XQException& e);
TESSELMXF_XMLUTILS_API Templates::WideString describe(const xercesc::DOMException& e);
TESSELMXF_XMLUTILS_API Templates::WideString describe(const xercesc::UTFDataFormatException& e);
TESSELMXF_XMLUTILS_API Templates::WideString describe(const xercesc::SAXException& e);
TESSELMXF_XMLUTILS_API Templates::WideString describe(const xercesc::XMLException& e);
///@}

/// @throws Exceptions::ParseError  always, with describe(e) as its message.
template <class E>
[[noreturn]] void throwParseError(const E& e) {
  throw Exceptions::ParseError(describe(e).c_str(), "Utils", __LINE__);
}

}  // namespace MXF::Tessel::XMLUtils
