#pragma once

#include "DocumentChanges.h"

#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace MXF::Tessel::XMLUtils::XPath {

/// A resolver that a document makes: bindings added by hand, then those in scope at a node but for the default
/// namespace.
class NodeBindings : public xercesc::DOMXPathNSResolver {
 public:
  /// @param node   may be null; outlives this object.
  /// @param clock  stamps the states of all resolvers that share it; outlives this object.
  NodeBindings(const xercesc::DOMNode* node, std::size_t& clock);

  const XMLCh* lookupNamespaceURI(const XMLCh* prefix) const override;
  const XMLCh* lookupPrefix(const XMLCh* uri) const override;
  /// The latest binding of a prefix counts. An empty URI unbinds it.
  void addNamespaceBinding(const XMLCh* prefix, const XMLCh* uri) override;
  /// Does nothing: the document that made the resolver frees it.
  void release() override {}

  /// Stands for the present bindings: no other resolver of the clock, and no other state of this one, has or had it. 0 once
  /// the node's document has been changed, which may change the bindings in scope.
  std::size_t stamp() const;
  bool isStampedBy(const std::size_t& clock) const { return &clock_ == &clock; }

 private:
  struct Binding {
    std::u16string uri;
    std::size_t added;  // by the clock
  };

  const xercesc::DOMNode* node_;
  DocumentChanges changes_;
  std::map<std::u16string, Binding, std::less<>> bindings_;  // by prefix; look-ups hand out pointers into it
  std::size_t& clock_;
  std::size_t stamp_;
};

/// The bindings that a query was compiled with: records what the compiler asks for, and answers the same ever after.
class RecordedBindings : public xercesc::DOMXPathNSResolver {
 public:
  /// @param source  asked while recording.
  explicit RecordedBindings(const xercesc::DOMXPathNSResolver& source) : source_(&source) {}

  const XMLCh* lookupNamespaceURI(const XMLCh* prefix) const override;
  const XMLCh* lookupPrefix(const XMLCh* uri) const override;
  void addNamespaceBinding(const XMLCh* /*prefix*/, const XMLCh* /*uri*/) override {}
  void release() override {}

  /// From now on the source is not asked any more; a prefix that was not recorded is unbound.
  void stopRecording() { source_ = nullptr; }
  /// Whether the resolver binds the recorded prefixes to the same URIs.
  bool matches(const xercesc::DOMXPathNSResolver& resolver) const;

 private:
  struct Binding {
    std::u16string prefix;
    std::optional<std::u16string> uri;
  };

  const xercesc::DOMXPathNSResolver* source_;
  mutable std::deque<Binding> bindings_;  // look-ups hand out pointers into it
};

}  // namespace MXF::Tessel::XMLUtils::XPath
