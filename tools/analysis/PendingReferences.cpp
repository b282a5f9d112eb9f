#include "analysis/PendingReferences.h"

#include "analysis/DictionaryIndex.h"

#include <MetaMetadata/PropertyKeys.h>

#include <string_view>

namespace MXF::Tessel::Tool {

std::vector<PendingReference> pendingReferences(const MetaMetadata::MetaElement& element) {
  // The property's items are "[name,namespace URI];". What is not of that form is passed over.
  std::vector<PendingReference> references;
  const Templates::WideString* text = findProperty(element, MetaMetadata::PropertyKeys::unresolvedSetReferences);
  std::wstring_view rest;
  if (text != nullptr) rest = *text;
  for (std::size_t end = rest.find(L';'); end != std::wstring_view::npos; end = rest.find(L';')) {
    const std::wstring_view item = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    const std::size_t comma = item.find(L',');
    if (comma == std::wstring_view::npos || item.front() != L'[' || item.back() != L']') continue;
    references.push_back({Templates::WideString(item.substr(1, comma - 1)),
                          Templates::WideString(item.substr(comma + 1, item.size() - comma - 2))});
  }
  return references;
}

}  // namespace MXF::Tessel::Tool
