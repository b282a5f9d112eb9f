#include "NamespaceBindings.h"

#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>

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

const NodeBindings::Binding* NodeBindings::find(const XMLCh* prefix) const {
  const auto binding =
      std::find_if(bindings_.begin(), bindings_.end(), [prefix](const Binding& b) { return b.prefix == prefix; });
  return binding == bindings_.end() ? nullptr : &*binding;
}

const XMLCh* NodeBindings::lookupNamespaceURI(const XMLCh* prefix) const {
  using xercesc::XMLString;
  using xercesc::XMLUni;
  if (const Binding* binding = find(prefix)) return binding->uri.empty() ? nullptr : binding->uri.c_str();
  if (XMLString::equals(prefix, XMLUni::fgXMLString)) return XMLUni::fgXMLURIName;
  if (XMLString::equals(prefix, XMLUni::fgXMLNSString)) return XMLUni::fgXMLNSURIName;
  // A name without prefix is in no namespace, whatever default the document declares.
  if (node_ == nullptr || *prefix == u'\0') return nullptr;
  const XMLCh* uri = node_->lookupNamespaceURI(prefix);
  return uri == nullptr || *uri == u'\0' ? nullptr : uri;
}

const XMLCh* NodeBindings::lookupPrefix(const XMLCh* uri) const {
  if (*uri == u'\0') return nullptr;
  const auto binding =
      std::find_if(bindings_.begin(), bindings_.end(), [uri](const Binding& b) { return b.uri == uri; });
  if (binding != bindings_.end()) return binding->prefix.c_str();
  return node_ == nullptr ? nullptr : node_->lookupPrefix(uri);
}

void NodeBindings::addNamespaceBinding(const XMLCh* prefix, const XMLCh* uri) {
  const std::u16string newUri = uri == nullptr ? u"" : uri;
  const auto binding =
      std::find_if(bindings_.begin(), bindings_.end(), [prefix](const Binding& b) { return b.prefix == prefix; });
  if (binding == bindings_.end()) {
    bindings_.push_back({prefix, newUri});
  } else {
    binding->uri = newUri;
  }
  stamp_ = ++clock_;
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
