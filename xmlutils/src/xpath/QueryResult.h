#pragma once

#include "DocumentChanges.h"

#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/dom/DOMXPathResult.hpp>
#include <xqilla/context/DynamicContext.hpp>
#include <xqilla/context/impl/VarStoreImpl.hpp>
#include <xqilla/items/Item.hpp>
#include <xqilla/runtime/Result.hpp>

#include <memory>

namespace MXF::Tessel::XMLUtils::XPath {

class CompiledQuery;

/// The result of one evaluation, of type FIRST_RESULT_TYPE or ITERATOR_RESULT_TYPE. Belongs to its query, and is ready
/// for another evaluation after its release().
class QueryResult : public xercesc::DOMXPathResult {
 public:
  explicit QueryResult(CompiledQuery& query);
  QueryResult(const QueryResult&) = delete;
  QueryResult& operator=(const QueryResult&) = delete;
  ~QueryResult() override;

  /// @param keepAlive  held until the result is released.
  /// @throws XQillaException  the evaluation fails, or the type is another one.
  void evaluate(const xercesc::DOMNode* contextNode, ResultType type, std::shared_ptr<CompiledQuery> keepAlive);

  ResultType getResultType() const override { return type_; }
  /// Null: values carry no schema types here.
  const xercesc::DOMTypeInfo* getTypeInfo() const override { return nullptr; }
  bool isNode() const override;
  bool getBooleanValue() const override;
  int getIntegerValue() const override;
  double getNumberValue() const override;
  const XMLCh* getStringValue() const override;
  xercesc::DOMNode* getNodeValue() const override;
  bool iterateNext() override;
  bool getInvalidIteratorState() const override;
  bool snapshotItem(XMLSize_t index) override;
  XMLSize_t getSnapshotLength() const override;
  void release() override;

 private:
  void start(const xercesc::DOMNode* contextNode);
  void clear() noexcept;
  const Item& currentItem() const;

  CompiledQuery& query_;
  VarStoreImpl variables_;
  std::unique_ptr<DynamicContext> context_;
  ResultType type_ = FIRST_RESULT_TYPE;
  Result items_;
  Item::Ptr current_;
  DocumentChanges changes_{nullptr};  // of the context node's document, during an iteration
  std::shared_ptr<CompiledQuery> keepAlive_;
};

}  // namespace MXF::Tessel::XMLUtils::XPath
