#pragma once

#include "OwnedMemory.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMXPathException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xqilla/exceptions/XQException.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

#include <new>

namespace MXF::Tessel::XMLUtils::XPath {

/// @throws XQillaException  made of the arguments; std::bad_alloc if there is no memory for its text.
template <class... Arguments>
[[noreturn]] void throwQueryError(const Arguments&... arguments) {
  try {
    throw XQillaException(arguments...);
  } catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
  }
}

/// Runs an operation of XQilla's own interfaces. Its failures become the XQillaException that the DOM XPath interfaces
/// raise, with XQilla's text, or std::bad_alloc when the memory that it works with has run out.
template <class Operation>
auto translatingErrors(const OwnedMemory& memory, Operation operation) {
  constexpr short invalidExpression = xercesc::DOMXPathException::INVALID_EXPRESSION_ERR;
  try {
    return operation();
  } catch (const XQException& e) {
    if (memory.hasRunOut()) throw std::bad_alloc();
    throwQueryError(e);
  } catch (const XQillaException&) {
    if (memory.hasRunOut()) throw std::bad_alloc();
    throw;
  } catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
  } catch (const xercesc::DOMException& e) {
    throwQueryError(invalidExpression, e.getMessage());
  } catch (const xercesc::XMLException& e) {
    throwQueryError(invalidExpression, e.getMessage());
  }
}

}  // namespace MXF::Tessel::XMLUtils::XPath
