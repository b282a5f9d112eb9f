#pragma once

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMXPathException.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xqilla/exceptions/XQException.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

/// Runs an operation of XQilla's own interfaces. Its failures become the XQillaException that the DOM XPath interfaces
/// raise, with XQilla's text.
template <class Operation>
auto translatingErrors(Operation operation) {
  constexpr short invalidExpression = xercesc::DOMXPathException::INVALID_EXPRESSION_ERR;
  try {
    return operation();
  } catch (const XQException& e) {
    throw XQillaException(e);
  } catch (const XQillaException&) {
    throw;
  } catch (const xercesc::DOMException& e) {
    throw XQillaException(invalidExpression, e.getMessage());
  } catch (const xercesc::XMLException& e) {
    throw XQillaException(invalidExpression, e.getMessage());
  }
}

}  // namespace MXF::Tessel::XMLUtils::XPath
