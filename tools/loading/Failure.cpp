#include "loading/Failure.h"

#include "text/Unicode.h"

#include <Exceptions/BaseException.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/UTFDataFormatException.hpp>
#include <xqilla/exceptions/XQException.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

#include <cstdint>
#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>
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
  Failure failure{className, std::nullopt, {}, {}};
  XMLUtils::utf16ToWstring(message, failure.message);
  return failure;
}

Failure parserFailure(const xercesc::SAXParseException& error) {
  Failure failure = xmlFailure("SAXParseException", error.getMessage());
  const Templates::WideString path = XMLUtils::toWstring(error.getSystemId());
  if (!path.empty() && error.getLineNumber() > 0) {
    failure.place = {std::make_shared<const Templates::WideString>(path),
                     static_cast<std::uint32_t>(error.getLineNumber()),
                     static_cast<std::uint32_t>(error.getColumnNumber())};
  }
  return failure;
}

}  // namespace

std::optional<Failure> failureOf(const std::function<void()>& action) {
  // The most derived classes first: an XQillaException is a DOMException, a UTFDataFormatException an XMLException.
  try {
    action();
    return std::nullopt;
  } catch (const Exceptions::BaseException& error) {
    return Failure{unqualifiedName(typeid(error)), error.code(), error.message(), error.location()};
  } catch (const XQillaException& error) {
    return xmlFailure("XQillaException", error.getString());
  } catch (const XQException& error) {
    return xmlFailure("XQException", error.getError());
  } catch (const xercesc::SAXParseException& error) {
    return parserFailure(error);
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
    return Failure{unqualifiedName(typeid(error)), std::nullopt, Utils::stringToWstring(error.what()), {}};
  }
}

Templates::WideString messageWithoutPlace(const Failure& failure) {
  const Templates::WideString start = failure.place.toString() + L": ";
  const bool isNamed = failure.place.isKnown() && failure.message.compare(0, start.size(), start) == 0;
  return isNamed ? failure.message.substr(start.size()) : failure.message;
}

Templates::WideString shownPath(const Templates::WideString& path) {
  Templates::WideString shown = path;
  for (std::size_t found = shown.find(L"/./"); found != Templates::WideString::npos;
       found = shown.find(L"/./", found)) {
    shown.erase(found, 2);
  }
  while (shown.compare(0, 2, L"./") == 0 && shown.size() > 2) {
    shown.erase(0, 2);
    while (shown.size() > 1 && shown.front() == L'/') shown.erase(0, 1);  // else it would be another path
  }
  return shown;
}

bool isSameFile(const Templates::WideString& a, const Templates::WideString& b) {
  std::error_code ignored;
  return a == b || std::filesystem::equivalent(narrow(a), narrow(b), ignored);
}

std::string shownPlace(const Utils::SourceLocation& place, const std::string& file) {
  return place.isKnown() ? narrow(shownPath(place.toString())) : file;
}

}  // namespace MXF::Tessel::Tool
