#include "QueryResult.h"

#include "CompiledQuery.h"
#include "ErrorTranslation.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xqilla/functions/FunctionNumber.hpp>
#include <xqilla/items/ATBooleanOrDerived.hpp>
#include <xqilla/items/AnyAtomicType.hpp>
#include <xqilla/items/Node.hpp>
#include <xqilla/items/Numeric.hpp>
#include <xqilla/xerces/XercesConfiguration.hpp>

#include <typeinfo>
#include <utility>

namespace MXF::Tessel::XMLUtils::XPath {

using xercesc::DOMException;
using xercesc::DOMNode;
using xercesc::DOMXPathException;
using xercesc::DOMXPathResult;

namespace {

[[noreturn]] void throwNoSnapshot(DOMXPathResult::ResultType type) {
  const bool isFirst = type == DOMXPathResult::FIRST_RESULT_TYPE;
  throw XQillaException(DOMXPathException::TYPE_ERR,
                        isFirst ? u"SNAPSHOT_RESULT was requested from a XPath2Result of type FIRST_RESULT"
                                : u"SNAPSHOT_RESULT was requested from a XPath2Result of type ITERATOR_RESULT");
}

}  // namespace

QueryResult::QueryResult(CompiledQuery& query)
    : query_(query), variables_(&query.contextMemory()), context_(query.createContext(variables_)), items_(nullptr) {}

QueryResult::~QueryResult() {
  clear();
}

void QueryResult::evaluate(const DOMNode* contextNode, ResultType type, std::shared_ptr<CompiledQuery> keepAlive) {
  if (type != FIRST_RESULT_TYPE && type != ITERATOR_RESULT_TYPE) {
    throw XQillaException(DOMException::NOT_SUPPORTED_ERR, u"Results are of type first or iterator.");
  }
  type_ = type;
  if (type == ITERATOR_RESULT_TYPE) changes_ = DocumentChanges(contextNode);
  try {
    translatingErrors(query_.memory(), [&] { start(contextNode); });
  } catch (...) {
    clear();
    throw;
  }
  keepAlive_ = std::move(keepAlive);
}

void QueryResult::start(const DOMNode* contextNode) {
  if (contextNode != nullptr) {
    const auto* configuration = static_cast<const XercesConfiguration*>(context_->getConfiguration());
    context_->setContextItem(configuration->createNode(contextNode, context_.get()));
  }
  items_ = query_.query().execute(context_.get());
  if (type_ == FIRST_RESULT_TYPE) current_ = items_->next(context_.get());
}

void QueryResult::clear() noexcept {
  current_ = nullptr;
  items_ = nullptr;
  context_->clearDynamicContext();
}

void QueryResult::release() {
  const std::shared_ptr<CompiledQuery> keepAlive = std::move(keepAlive_);
  clear();
  query_.giveBack(*this);
}

const Item& QueryResult::currentItem() const {
  if (current_.isNull())
    throw XQillaException(DOMException::INVALID_STATE_ERR, u"There is no current result in the result");
  return *current_;
}

bool QueryResult::isNode() const {
  return current_.notNull() && current_->isNode();
}

DOMNode* QueryResult::getNodeValue() const {
  const Item& item = currentItem();
  if (!item.isNode()) throw XQillaException(DOMXPathException::TYPE_ERR, u"The requested result is not a node");
  return static_cast<DOMNode*>(item.getInterface(XercesConfiguration::gXerces));
}

const XMLCh* QueryResult::getStringValue() const {
  const Item& item = currentItem();
  return translatingErrors(query_.memory(), [&] {
    return item.isNode() ? static_cast<const Node&>(item).dmStringValue(context_.get()) : item.asString(context_.get());
  });
}

double QueryResult::getNumberValue() const {
  currentItem();
  return translatingErrors(query_.memory(),
                           [this] { return FunctionNumber::number(current_, context_.get(), nullptr)->asDouble(); });
}

int QueryResult::getIntegerValue() const {
  currentItem();
  return translatingErrors(query_.memory(),
                           [this] { return FunctionNumber::number(current_, context_.get(), nullptr)->asInt(); });
}

bool QueryResult::getBooleanValue() const {
  const Item& item = currentItem();
  try {
    const auto& value = dynamic_cast<const AnyAtomicType&>(item);
    const AnyAtomicType::Ptr boolean = value.castAs(AnyAtomicType::BOOLEAN, context_.get());
    return static_cast<const ATBooleanOrDerived&>(*boolean).isTrue();
  } catch (const XQException&) {
  } catch (const std::bad_cast&) {
  }
  throw XQillaException(DOMXPathException::TYPE_ERR, u"Cannot convert result to a boolean");
}

bool QueryResult::getInvalidIteratorState() const {
  return type_ == ITERATOR_RESULT_TYPE && changes_.any();
}

bool QueryResult::iterateNext() {
  if (type_ != ITERATOR_RESULT_TYPE) {
    throw XQillaException(DOMXPathException::TYPE_ERR,
                          u"ITERATOR_RESULT was requested from a XPath2Result of type FIRST_RESULT");
  }
  if (getInvalidIteratorState()) {
    throw XQillaException(DOMException::INVALID_STATE_ERR, u"Document has changed");
  }
  translatingErrors(query_.memory(), [this] { current_ = items_->next(context_.get()); });
  if (current_.isNull()) items_ = nullptr;
  return current_.notNull();
}

bool QueryResult::snapshotItem(XMLSize_t /*index*/) {
  throwNoSnapshot(type_);
}

XMLSize_t QueryResult::getSnapshotLength() const {
  throwNoSnapshot(type_);
}

}  // namespace MXF::Tessel::XMLUtils::XPath
