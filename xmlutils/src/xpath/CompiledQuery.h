#pragma once

#include "NamespaceBindings.h"
#include "OwnedMemory.h"

#include <xercesc/dom/DOMXPathNSResolver.hpp>
#include <xqilla/context/DynamicContext.hpp>
#include <xqilla/context/impl/VarStoreImpl.hpp>
#include <xqilla/simple-api/XQQuery.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace MXF::Tessel::XMLUtils::XPath {

class QueryResult;

/// A query compiled by XQilla, together with the results that are being or have been evaluated from it. Making an
/// XQilla evaluation context costs far more than evaluating, so a released result keeps its context and is taken up
/// again.
class CompiledQuery {
 public:
  /// Whether the query may use functions of the modules that XQilla imports by default.
  enum class Modules { None, Default };

  /// @param staticContext  may be shared with other queries; outlives this one through the pointer.
  /// @param memory         what the static context was made with; outlived by it.
  /// @param resolver       asked for the prefixes while compiling.
  /// @throws XQillaException  the text is no query, or uses a prefix that the resolver does not bind.
  CompiledQuery(std::shared_ptr<DynamicContext> staticContext, OwnedMemory& memory, std::u16string_view text,
                const xercesc::DOMXPathNSResolver& resolver, Modules modules);
  CompiledQuery(const CompiledQuery&) = delete;
  CompiledQuery& operator=(const CompiledQuery&) = delete;
  ~CompiledQuery();

  const std::u16string& text() const { return text_; }
  /// Whether compiling the text under that resolver would give this query.
  /// @param stamp  state of the resolver (NodeBindings::stamp); 0 when it has none.
  bool isFor(std::u16string_view text, const xercesc::DOMXPathNSResolver& resolver, std::size_t stamp);

  /// A result that nobody uses, ready to be evaluated. Given back with giveBack().
  QueryResult& take();
  void giveBack(QueryResult& result) noexcept;

  const XQQuery& query() const { return *query_; }
  const OwnedMemory& memory() const { return memory_; }
  /// @param variables  outlives the context.
  std::unique_ptr<DynamicContext> createContext(VarStoreImpl& variables) const;
  XPath2MemoryManager& contextMemory() const { return *staticContext_->getMemoryManager(); }

 private:
  std::shared_ptr<DynamicContext> staticContext_;
  OwnedMemory& memory_;
  std::u16string text_;
  RecordedBindings bindings_;
  std::unique_ptr<XQQuery> query_;
  std::vector<std::unique_ptr<QueryResult>> results_;
  std::vector<QueryResult*> idle_;

  std::size_t lastStamp_ = 0;  // of the resolver that matched last: the usual case, known without any look-up
};

}  // namespace MXF::Tessel::XMLUtils::XPath
