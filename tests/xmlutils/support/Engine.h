#pragma once

#include <XMLUtils/Released.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMLSParser.hpp>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/dom/DOMXPathExpression.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>
#include <xercesc/dom/DOMXPathResult.hpp>

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// Evaluates queries through the DOM XPath interfaces and writes down all that a user sees of it, so that two
/// implementations can be compared.
namespace MXF::Tessel::Test {

using Expression = XMLUtils::Released<xercesc::DOMXPathExpression>;
using QueryResult = XMLUtils::Released<xercesc::DOMXPathResult>;
constexpr auto first = xercesc::DOMXPathResult::FIRST_RESULT_TYPE;
constexpr auto iterator = xercesc::DOMXPathResult::ITERATOR_RESULT_TYPE;

std::u16string utf16(const std::string& utf8);
std::string utf8(const XMLCh* text);

/// A parser whose documents evaluate XPath 2. They live as long as it does.
class Engine {
 public:
  /// That of the library, or the one that comes with XQilla.
  enum class Kind { Own, Stock };
  static constexpr Kind kinds[] = {Kind::Own, Kind::Stock};
  explicit Engine(Kind kind = Kind::Own);

  /// Every engine reads the same text from the same file.
  xercesc::DOMDocument& read(const std::string& xml);

 private:
  XMLUtils::Released<xercesc::DOMLSParser> parser_;
};

/// While one lives, what XQilla's own implementation forgets to free is not reported: it keeps every expression whose
/// text does not compile.
class LeaksOfXQilla {
 public:
  LeaksOfXQilla();
  LeaksOfXQilla(const LeaksOfXQilla&) = delete;
  LeaksOfXQilla& operator=(const LeaksOfXQilla&) = delete;
  ~LeaksOfXQilla();
};

/// How a resolver is made.
struct Bindings {
  enum class From { Nothing, NullNode, Root };
  From from = From::Root;  ///< No resolver at all, one that knows no node, or one of the root's bindings.
  std::vector<std::pair<std::string, std::string>> added;

  [[nodiscard]] xercesc::DOMXPathNSResolver* on(xercesc::DOMDocument& document) const;
};

/// Every node of the document, attributes included, in document order.
std::vector<xercesc::DOMNode*> allNodes(xercesc::DOMDocument& document);
/// Where a node stands in its document: "/2/0/@name".
std::string placeOf(const xercesc::DOMNode* node);

/// The action's answer, or "XQillaException CODE: text" when it throws one.
std::string answerOf(const std::function<std::string()>& action);

Expression expressionOf(xercesc::DOMDocument& document, const std::string& query,
                        const xercesc::DOMXPathNSResolver* resolver);
QueryResult evaluate(const Expression& expression, const xercesc::DOMNode* context,
                     xercesc::DOMXPathResult::ResultType type);

/// All that the present item of a result says of itself: its place if it is a node, its values or their failures.
std::string itemOf(const xercesc::DOMXPathResult& result);
/// The items of a fresh iterator, or the item of a first result, one by line.
std::string itemsOf(xercesc::DOMXPathResult& result);
/// itemsOf() a query's result, or the failure.
std::string evaluated(xercesc::DOMDocument& document, const xercesc::DOMNode* context, const std::string& query,
                      const xercesc::DOMXPathNSResolver* resolver, xercesc::DOMXPathResult::ResultType type);

}  // namespace MXF::Tessel::Test
