#include "QueryCache.h"

#include "ErrorTranslation.h"

#include <xqilla/exceptions/XQillaException.hpp>
#include <xqilla/functions/XQillaFunction.hpp>
#include <xqilla/simple-api/XQilla.hpp>

#include <functional>
#include <string_view>
#include <utility>

namespace MXF::Tessel::XMLUtils::XPath {

namespace {

// A load uses two dozen texts. More than these only come from texts that are made up as it goes, of which none is worth
// keeping for ever; when they are dropped, the memory of the context that compiled them goes with them.
constexpr std::size_t mostQueries = 128;

}  // namespace

QueryCache::QueryCache() {
  noResolver_.addNamespaceBinding(u"xqilla", XQillaFunction::XMLChFunctionURI);
}

std::shared_ptr<DynamicContext> QueryCache::newContext() const {
  const auto engine = engine_;
  DynamicContext* context = translatingErrors(
      engine->memory, [&] { return XQilla::createContext(XQilla::XPATH2, &engine->configuration, &engine->memory); });
  return {context, [engine](DynamicContext* unused) { delete unused; }};
}

std::shared_ptr<CompiledQuery> QueryCache::compile(std::u16string_view text,
                                                   const xercesc::DOMXPathNSResolver& resolver) {
  // Nearly all queries do without the default modules, whose import costs ten times the rest, and can share a context. It
  // is taken out while it compiles: no query is to see what a failed one may have left in it.
  const std::shared_ptr<DynamicContext> context =
      sharedContext_ ? std::exchange(sharedContext_, nullptr) : newContext();
  try {
    auto query =
        std::make_shared<CompiledQuery>(context, engine_->memory, text, resolver, CompiledQuery::Modules::None);
    sharedContext_ = context;
    return query;
  } catch (const XQillaException&) {
    return std::make_shared<CompiledQuery>(newContext(), engine_->memory, text, resolver,
                                           CompiledQuery::Modules::Default);
  }
}

std::size_t QueryCache::stampOf(const xercesc::DOMXPathNSResolver& resolver) const {
  const auto* bindings = dynamic_cast<const NodeBindings*>(&resolver);
  return bindings != nullptr && bindings->isStampedBy(clock_) ? bindings->stamp() : 0;
}

void QueryCache::forgetAll() {
  auto engine = std::make_shared<QueryEngine>();
  queries_.clear();
  sharedContext_.reset();
  engine_ = std::move(engine);
}

std::shared_ptr<CompiledQuery> QueryCache::query(const XMLCh* text, const xercesc::DOMXPathNSResolver* resolver) {
  if (engine_->memory.hasRunOut()) forgetAll();
  const xercesc::DOMXPathNSResolver& bindings = resolver == nullptr ? noResolver_ : *resolver;
  const std::u16string_view textView(text);
  const std::size_t hash = std::hash<std::u16string_view>()(textView);
  const std::size_t stamp = stampOf(bindings);
  const auto [first, last] = queries_.equal_range(hash);
  for (auto entry = first; entry != last; ++entry) {
    if (entry->second->isFor(textView, bindings, stamp)) return entry->second;
  }
  if (queries_.size() >= mostQueries) forgetAll();
  std::shared_ptr<CompiledQuery> query = compile(textView, bindings);
  queries_.emplace(hash, query);
  return query;
}

}  // namespace MXF::Tessel::XMLUtils::XPath
