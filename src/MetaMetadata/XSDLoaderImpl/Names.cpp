// Qualified names, paths, and names in query texts.

#include "Names.h"

#include <algorithm>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;

WideString qnamePrefix(WideString name) {
  const std::size_t colon = name.find(L':');
  if (colon != WideString::npos) name.erase(colon);
  return name;
}

WideString qnameLocalPart(WideString name) {
  const std::size_t colon = name.find(L':');
  if (colon != WideString::npos) name.erase(0, colon + 1);
  return name;
}

void toForwardSlashes(WideString& path) {
  std::replace(path.begin(), path.end(), L'\\', L'/');
}

WideString queryLiteral(const WideString& text) {
  WideString literal = L"'";
  for (const wchar_t character : text) {
    if (character == L'\'') literal += character;
    literal += character;
  }
  return literal += L'\'';
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
