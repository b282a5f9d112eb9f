#include "loading/Failure.h"

#include <Exceptions/BaseException.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/UTFDataFormatException.hpp>
#include <xqilla/exceptions/XQException.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <memory>
#include <typeinfo>

namespace MXF::Tessel::Tool {

namespace {

std::string unqualifiedName(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> readable(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
  const std::string name = readable ? readable.get() : type.name();
  const std::string::size_type separator = name.rfind("::");
  return separator == std::string::npos ? name : name.substr(separator + 2);
}

Failure xmlFailure(const char* className, const XMLCh* message) {
  Failure failure{className, std::nullopt, {}};
  XMLUtils::utf16ToWstring(message, failure.message);
  return failure;
}

}  // namespace

std::optional<Failure> failureOf(const std::function<void()>& action) {
  // The most derived classes first: an XQillaException is a DOMException, a UTFDataFormatException an XMLException.
  try {
    action();
    return std::nullopt;
  } catch (const Exceptions::BaseException& error) {
    return Failure{unqualifiedName(typeid(error)), error.code(), error.message()};
  } catch (const XQillaException& error) {
    return xmlFailure("XQillaException", error.getString());
  } catch (const XQException& error) {
    return xmlFailure("XQException", error.getError());
  } catch (const xercesc::SAXParseException& error) {
    return xmlFailure("SAXParseException", error.getMessage());
  } catch (const xercesc::SAXException& error) {
    return xmlFailure("SAXException", error.getMessage());
  } catch (const xercesc::DOMException& error) {
    return xmlFailure("DOMException", error.getMessage());
  } catch (const xercesc::UTFDataFormatException& error) {
    return xmlFailure("UTFDataFormatException", error.getMessage());
  } catch (const xercesc::XMLException& error) {
    return xmlFailure("XMLException", error.getMessage());
  } catch (const xercesc::OutOfMemoryException& error) {
    return xmlFailure("OutOfMemoryException", error.getMessage());
  } catch (const std::exception& error) {
    return Failure{unqualifiedName(typeid(error)), std::nullopt, Utils::stringToWstring(error.what())};
  }
}

}  // namespace MXF::Tessel::Tool
