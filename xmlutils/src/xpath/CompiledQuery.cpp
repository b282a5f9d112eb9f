#include "CompiledQuery.h"

#include "AttributeComparison.h"
#include "ErrorTranslation.h"
#include "QueryResult.h"

#include <xqilla/context/impl/XQDynamicContextImpl.hpp>
#include <xqilla/simple-api/XQilla.hpp>

#include <utility>

namespace MXF::Tessel::XMLUtils::XPath {

CompiledQuery::CompiledQuery(std::shared_ptr<DynamicContext> staticContext, OwnedMemory& memory,
                             std::u16string_view text, const xercesc::DOMXPathNSResolver& resolver, Modules modules)
    : staticContext_(std::move(staticContext)), memory_(memory), text_(text), bindings_(resolver) {
  staticContext_->setNSResolver(&bindings_);
  staticContext_->setDefaultElementAndTypeNS(bindings_.lookupNamespaceURI(u""));
  const unsigned int flags = XQilla::NO_ADOPT_CONTEXT | (modules == Modules::None ? XQilla::NO_DEFAULT_MODULES : 0);
  translatingErrors(memory_, [&] {
    query_.reset(XQilla::parse(text_.c_str(), staticContext_.get(), nullptr, flags, &memory_));
    compareAttributesAsText(*query_);
  });
  bindings_.stopRecording();
}

CompiledQuery::~CompiledQuery() = default;

bool CompiledQuery::isFor(std::u16string_view text, const xercesc::DOMXPathNSResolver& resolver, std::size_t stamp) {
  if (text_ != text) return false;
  if (stamp != 0 && stamp == lastStamp_) return true;
  if (!bindings_.matches(resolver)) return false;
  lastStamp_ = stamp;
  return true;
}

QueryResult& CompiledQuery::take() {
  if (idle_.empty()) {
    idle_.reserve(results_.size() + 1);  // so that giving back cannot fail
    results_.push_back(std::make_unique<QueryResult>(*this));
    return *results_.back();
  }
  QueryResult& result = *idle_.back();
  idle_.pop_back();
  return result;
}

void CompiledQuery::giveBack(QueryResult& result) noexcept {
  idle_.push_back(&result);
}

std::unique_ptr<DynamicContext> CompiledQuery::createContext(VarStoreImpl& variables) const {
  // The shared context may have compiled other queries since, under other bindings.
  staticContext_->setNSResolver(&bindings_);
  return translatingErrors(memory_, [&] {
    // Not by the query itself: a context that fails to be made loses the variables that it makes for itself.
    return std::unique_ptr<DynamicContext>(new (&memory_) XQDynamicContextImpl(
        staticContext_->getConfiguration(), staticContext_.get(), &variables, &memory_));
  });
}

}  // namespace MXF::Tessel::XMLUtils::XPath
