// The text form of pending set references, written by the dictionary pass and read by the scheme pass.

#include "PendingSetReferences.h"

#include <algorithm>
#include <string_view>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;

namespace {

// "[" and a name of one character are the least that an item has before its end.
constexpr std::size_t shortestItem = 3;

void parseItem(std::wstring_view item, PendingSetReferences& references) {
  item.remove_prefix(1);  // "["
  const std::size_t comma = std::min(item.find(L','), item.size());
  const std::wstring_view name = item.substr(0, comma);
  item.remove_prefix(std::min(comma + 1, item.size()));
  const std::wstring_view namespaceUri = item.substr(0, item.find(L']'));
  references.emplace(name, namespaceUri);
}

}  // namespace

void appendPendingReference(WideString& text, const WideString& name, const WideString& namespaceUri) {
  text += L"[" + name + L"," + namespaceUri + L"];";
}

PendingSetReferences parsePendingReferences(const WideString& text) {
  PendingSetReferences references;
  std::wstring_view rest(text);
  while (true) {
    const std::size_t end = rest.find(L';');
    if (end == std::wstring_view::npos || end < shortestItem) return references;
    parseItem(rest.substr(0, end), references);
    rest.remove_prefix(end + 1);
  }
}

WideString formatPendingReferences(const PendingSetReferences& references) {
  WideString text;
  for (const auto& [name, namespaceUri] : references) appendPendingReference(text, name, namespaceUri);
  return text;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
