#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/Utils.h>

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <sstream>
#include <typeinfo>

namespace MXF::Tessel::XMLUtils {

namespace {

using Templates::WideString;

WideString readableName(const std::type_info& type) {
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                    std::free);
  return Utils::stringToWstring(name ? name.get() : type.name());
}

/// The pieces written one after another, nothing between them.
template <class... Pieces>
WideString written(const Pieces&... pieces) {
  std::wostringstream text;
  (text << ... << pieces);
  return WideString(text.str().c_str());
}

template <class E>
WideString describeByTypeName(const E& e) {
  return written(readableName(typeid(E)).c_str(), L": ", toWstring(e.getMessage()).c_str());
}

}  // namespace

WideString describe(const XQillaException& e) {
  return written(L"XQillaException:", L": ", toWstring(e.getString()).c_str());
}

WideString describe(const XQException& e) {
  return written(L"XQException:", L": ", toWstring(e.getError()).c_str());
}

WideString describe(const xercesc::DOMException& e) {
  return written(L"DOMException:", L": ", toWstring(e.msg).c_str(), L"(", e.code, L")");
}

WideString describe(const xercesc::UTFDataFormatException& e) {
  return describeByTypeName(e);
}
WideString describe(const xercesc::SAXException& e) {
  return describeByTypeName(e);
}
WideString describe(const xercesc::XMLException& e) {
  return describeByTypeName(e);
}

}  // namespace MXF::Tessel::XMLUtils
