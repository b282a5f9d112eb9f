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

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <memory>
#include <string_view>
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

std::string narrow(const Templates::WideString& text) {
  const Templates::NarrowString result = Utils::wstringToString(text.c_str());
  return {result.begin(), result.end()};
}

/// Position after a colon and a number that stand at a position, or npos.
std::size_t skipNumber(std::string_view text, std::size_t position) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789", position + 1), text.size());
  return position < text.size() && text[position] == ':' && end > position + 1 ? end : std::string_view::npos;
}

/// The place that a message of the parser begins with, "PATH:LINE:COLUMN"; empty for any other message.
std::string_view placeOf(std::string_view message, const Failure& failure) {
  if (failure.className != "SAXParseException") return {};  // others may hold the like by chance
  for (std::size_t colon = message.find(':'); colon != std::string_view::npos; colon = message.find(':', colon + 1)) {
    const std::size_t line = skipNumber(message, colon);
    const std::size_t column = line == std::string_view::npos ? line : skipNumber(message, line);
    if (column != std::string_view::npos && message.substr(column, 2) == ": ") return message.substr(0, column);
  }
  return {};
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
    return Failure{unqualifiedName(typeid(error)), std::nullopt, Utils::stringToWstring(error.what()), {}};
  }
}

std::string failureLine(const std::string& file, const Failure& failure) {
  std::string message = narrow(failure.message);
  std::string place(failure.place.isKnown() ? narrow(failure.place.toString()) : placeOf(message, failure));
  if (place.empty()) place = file;
  // Messages of the parser name the place themselves.
  if (message.compare(0, place.size() + 2, place + ": ") == 0) message.erase(0, place.size() + 2);
  return place + ": error: " + message + " [" + failure.className + ']';
}

}  // namespace MXF::Tessel::Tool
