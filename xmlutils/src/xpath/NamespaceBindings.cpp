#include "NamespaceBindings.h"

#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>
#include <string_view>

namespace MXF::Tessel::XMLUtils::XPath {

namespace {

const XMLCh* textOf(const std::optional<std::u16string>& uri) {
  return uri ? uri->c_str() : nullptr;
}

std::optional<std::u16string> lookUp(const xercesc::DOMXPathNSResolver& resolver, const XMLCh* prefix) {
  const XMLCh* uri = resolver.lookupNamespaceURI(prefix);
  if (uri == nullptr) return std::nullopt;
  return uri;
}

}  // namespace

NodeBindings::NodeBindings(const xercesc::DOMNode* node, std::size_t& clock)
    : node_(node), changes_(node), clock_(clock), stamp_(++clock) {}

std::size_t NodeBindings::stamp() const {
  return changes_.any() ? 0 : stamp_;
}

const XMLCh* NodeBindings::lookupNamespaceURI(const XMLCh* prefix) const {
  using xercesc::XMLString;
  using xercesc::XMLUni;
  const auto binding = bindings_.find(std::u16string_view(prefix));
  if (binding != bindings_.end()) return binding->second.uri.empty() ? nullptr : binding->second.uri.c_str();
  if (XMLString::equals(prefix, XMLUni::fgXMLString)) return XMLUni::fgXMLURIName;
  if (XMLString::equals(prefix, XMLUni::fgXMLNSString)) return XMLUni::fgXMLNSURIName;
  // A name without prefix is in no namespace, whatever default the document declares.
  if (node_ == nullptr || *prefix == u'\0') return nullptr;
  const XMLCh* uri = node_->lookupNamespaceURI(prefix);
  return uri == nullptr || *uri == u'\0' ? nullptr : uri;
}

const XMLCh* NodeBindings::lookupPrefix(const XMLCh* uri) const {
  if (*uri == u'\0') return nullptr;
  // Of several prefixes of one namespace, the one that was bound first.
  auto earliest = bindings_.end();
  for (auto binding = bindings_.begin(); binding != bindings_.end(); ++binding) {
    const bool isEarlier = earliest == bindings_.end() || binding->second.added < earliest->second.added;
    if (binding->second.uri == uri && isEarlier) earliest = binding;
  }
  if (earliest != bindings_.end()) return earliest->first.c_str();
  return node_ == nullptr ? nullptr : node_->lookupPrefix(uri);
}

void NodeBindings::addNamespaceBinding(const XMLCh* prefix, const XMLCh* uri) {
  const std::u16string newUri = uri == nullptr ? u"" : uri;
  stamp_ = ++clock_;
  const auto [binding, isNew] = bindings_.try_emplace(prefix, Binding{newUri, stamp_});
  if (!isNew) binding->second.uri = newUri;
}

const XMLCh* RecordedBindings::lookupNamespaceURI(const XMLCh* prefix) const {
  for (const Binding& binding : bindings_) {
    if (binding.prefix == prefix) return textOf(binding.uri);
  }
  if (source_ == nullptr) return nullptr;
  bindings_.push_back({prefix, lookUp(*source_, prefix)});
  return textOf(bindings_.back().uri);
}

const XMLCh* RecordedBindings::lookupPrefix(const XMLCh* uri) const {
  for (const Binding& binding : bindings_) {
    if (binding.uri && *binding.uri == uri) return binding.prefix.c_str();
  }
  return nullptr;
}

bool RecordedBindings::matches(const xercesc::DOMXPathNSResolver& resolver) const {
  return std::all_of(bindings_.begin(), bindings_.end(), [&resolver](const Binding& binding) {
    const XMLCh* uri = resolver.lookupNamespaceURI(binding.prefix.c_str());
    return uri == nullptr ? !binding.uri : binding.uri && *binding.uri == uri;
  });
}

}  // namespace MXF::Tessel::XMLUtils::XPath
