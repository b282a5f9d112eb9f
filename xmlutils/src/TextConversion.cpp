#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/UnicodeString.h>

namespace MXF::Tessel::XMLUtils {

namespace {

Templates::basic_string<XMLCh> toXmlText(const Templates::WideString& codeUnits) {
  return {codeUnits.begin(), codeUnits.end()};
}

}  // namespace

UnicodeString::UnicodeString(const wchar_t* text) : text_(toXmlText(Utils::toCodeUnits(text))) {}
UnicodeString::UnicodeString(const char* text) : text_(toXmlText(Utils::stringToWstring(text))) {}
UnicodeString::~UnicodeString() = default;

void utf16ToWstring(const XMLCh* text, Templates::WideString& target) {
  target.clear();
  if (text == nullptr) return;
  target.assign(text, text + std::char_traits<XMLCh>::length(text));
}

}  // namespace MXF::Tessel::XMLUtils
