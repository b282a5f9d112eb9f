#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/UnicodeString.h>

#include <algorithm>
#include <string>

namespace MXF::Tessel::XMLUtils {

namespace {

Templates::basic_string<XMLCh> toXmlText(const Templates::WideString& codeUnits) {
  return {codeUnits.begin(), codeUnits.end()};
}

}  // namespace

UnicodeString::UnicodeString(const wchar_t* text) {
  if (text == nullptr) return;
  const wchar_t* end = text + std::char_traits<wchar_t>::length(text);
  const bool isCodeUnits = std::all_of(text, end, [](wchar_t c) { return static_cast<char32_t>(c) <= 0xFFFF; });
  text_ = isCodeUnits ? Templates::basic_string<XMLCh>(text, end) : toXmlText(Utils::toCodeUnits(text));
}
UnicodeString::UnicodeString(const char* text) : text_(toXmlText(Utils::stringToWstring(text))) {}
UnicodeString::~UnicodeString() = default;

void utf16ToWstring(const XMLCh* text, Templates::WideString& target) {
  target.clear();
  if (text == nullptr) return;
  target.assign(text, text + std::char_traits<XMLCh>::length(text));
}

}  // namespace MXF::Tessel::XMLUtils
