#pragma once

#include "SourceNames.h"

#include <Exceptions/Exceptions.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/Utils.h>

#include <xercesc/sax/SAXParseException.hpp>

#include <cstdint>
#include <memory>

/// The boundaries at which exceptions of Xerces-C and XQilla become the library's own.
namespace MXF::Tessel::MetaMetadata::Loading {

/// The ParseError with the text and place of a SAX exception.
inline Exceptions::ParseError parseErrorOf(const xercesc::SAXParseException& e, const char* sourceFile, int line) {
  Exceptions::ParseError error(XMLUtils::toWstring(e.getMessage()).c_str(), sourceFile, line);
  error.setLocation({std::make_shared<const Templates::WideString>(XMLUtils::toWstring(e.getSystemId())),
                     static_cast<std::uint32_t>(e.getLineNumber()), static_cast<std::uint32_t>(e.getColumnNumber())});
  return error;
}

/// Runs what reads a document. A SAX exception becomes a ParseError with the same text and place; all else passes.
/// @param line  of the caller, which the exception reports together with sourceFile.
template <class Operation>
auto translatingSaxErrors(const char* sourceFile, int line, Operation operation) {
  try {
    return operation();
  } catch (const xercesc::SAXParseException& e) {
    throw parseErrorOf(e, sourceFile, line);
  } catch (const xercesc::SAXException& e) {
    throw Exceptions::ParseError(XMLUtils::toWstring(e.getMessage()).c_str(), sourceFile, line);
  }
}

/// Runs a pass. Every exception of the XML libraries becomes a ParseError that describes it, so does everything
/// unknown; the library's own pass. The order matters: XQillaException is a DOMException, UTFDataFormatException an
/// XMLException.
template <class Operation>
void translatingXmlErrors(Operation operation) {
  try {
    operation();
  } catch (const XQillaException& e) {
    XMLUtils::throwParseError(e);
  } catch (const XQException& e) {
    XMLUtils::throwParseError(e);
  } catch (const xercesc::DOMException& e) {
    XMLUtils::throwParseError(e);
  } catch (const xercesc::UTFDataFormatException& e) {
    XMLUtils::throwParseError(e);
  } catch (const xercesc::SAXException& e) {
    XMLUtils::throwParseError(e);
  } catch (const xercesc::XMLException& e) {
    XMLUtils::throwParseError(e);
  } catch (const Exceptions::BaseException&) {
    throw;
  } catch (...) {
    throw Exceptions::ParseError(L"Unknown error in Xerces or XQilla", SourceNames::loaderImpl, __LINE__);
  }
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
