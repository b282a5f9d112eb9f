#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/Utils.h>

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
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

template <class E>
WideString describeByTypeName(const E& e) {
  return readableName(typeid(E)) + L": " + toWstring(e.getMessage());
}

}  // namespace

WideString describe(const XQillaException& e) {
  return L"XQillaException:: " + toWstring(e.getString());
}

WideString describe(const XQException& e) {
  return L"XQException:: " + toWstring(e.getError());
}

WideString describe(const xercesc::DOMException& e) {
  return L"DOMException:: " + toWstring(e.msg) + L"(" + Utils::toDecimal(e.code) + L")";
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
