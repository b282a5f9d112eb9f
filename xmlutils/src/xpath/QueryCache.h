#pragma once

#include "CompiledQuery.h"
#include "QueryEngine.h"

#include <xercesc/dom/DOMXPathNSResolver.hpp>

#include <memory>
#include <string_view>
#include <unordered_map>

namespace MXF::Tessel::XMLUtils::XPath {

/// The compiled queries of one parser's documents. Compiling a query costs a hundred times its evaluation, so each text
/// is compiled once for the bindings that it uses. Used by one thread at a time.
class QueryCache {
 public:
  QueryCache();
  QueryCache(const QueryCache&) = delete;
  QueryCache& operator=(const QueryCache&) = delete;

  /// The query for the text under the resolver; null binds only the prefixes that XQilla knows by itself.
  /// @throws XQillaException  it does not compile.
  std::shared_ptr<CompiledQuery> query(const XMLCh* text, const xercesc::DOMXPathNSResolver* resolver);

  /// Stamps the resolvers of the documents (NodeBindings).
  std::size_t& clock() { return clock_; }

 private:
  std::shared_ptr<CompiledQuery> compile(std::u16string_view text, const xercesc::DOMXPathNSResolver& resolver);
  std::shared_ptr<DynamicContext> newContext() const;
  void forgetAll();
  std::size_t stampOf(const xercesc::DOMXPathNSResolver& resolver) const;

  // Outlives the contexts: queries in use keep their context, and it keeps this.
  std::shared_ptr<QueryEngine> engine_ = std::make_shared<QueryEngine>();
  std::shared_ptr<DynamicContext> sharedContext_;
  std::unordered_multimap<std::size_t, std::shared_ptr<CompiledQuery>> queries_;  // by hash of the text
  std::size_t clock_ = 0;
  NodeBindings noResolver_{nullptr, clock_};  // the prefixes that XQilla knows by itself
};

}  // namespace MXF::Tessel::XMLUtils::XPath
