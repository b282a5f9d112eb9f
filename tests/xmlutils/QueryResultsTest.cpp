// Expressions and results may be held, released and taken up again in any order, and never disturb each other.

#include "support/Engine.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNodeList.hpp>

#include <algorithm>
#include <vector>

namespace MXF::Tessel::Test {
namespace {

using xercesc::DOMNode;
using xercesc::DOMXPathResult;

const std::string threeBranches = "<r><a><n v='1'/><n v='2'/></a><a><n v='x'/><n v='3'/></a><a/></r>";

struct Branches {
  explicit Branches(Engine::Kind kind = Engine::Kind::Own) : engine(kind), document(engine.read(threeBranches)) {}

  Expression expression(const std::string& query) { return expressionOf(document, query, nullptr); }
  [[nodiscard]] DOMNode* branch(XMLSize_t index) const {
    return document.getDocumentElement()->getChildNodes()->item(index);
  }

  Engine engine;
  xercesc::DOMDocument& document;
};

std::string nextOf(const QueryResult& result) {
  return answerOf([&] {
    return result->iterateNext() ? result->isNode() ? placeOf(result->getNodeValue()) : utf8(result->getStringValue())
                                 : "end";
  });
}

TEST(QueryResults, OfOneExpressionIterateIndependently) {
  Branches reading;
  const Expression expression = reading.expression("n");
  const QueryResult one = evaluate(expression, reading.branch(0), iterator);
  const QueryResult two = evaluate(expression, reading.branch(1), iterator);
  const QueryResult firstOnly = evaluate(expression, reading.branch(1), first);
  const QueryResult none = evaluate(expression, reading.branch(2), iterator);
  EXPECT_EQ(nextOf(one), "/0/0/0");
  EXPECT_EQ(nextOf(two), "/0/1/0");
  EXPECT_EQ(nextOf(none), "end");
  EXPECT_EQ(nextOf(one), "/0/0/1");
  EXPECT_EQ(placeOf(firstOnly->getNodeValue()), "/0/1/0");
  EXPECT_EQ(nextOf(one), "end");
  EXPECT_EQ(nextOf(one), "end");
  EXPECT_EQ(nextOf(two), "/0/1/1");
}

TEST(QueryResults, AreReleasedInAnyOrderAndAnyState) {
  Branches reading;
  std::vector<int> order = {0, 1, 2, 3};
  do {
    Expression expression = reading.expression("n");
    std::vector<QueryResult> results;
    for (const XMLSize_t branch : {0U, 1U, 2U})
      results.push_back(evaluate(expression, reading.branch(branch), iterator));
    EXPECT_EQ(nextOf(results[1]), "/0/1/0");
    for (const int next : order) {
      if (next == 3) {
        expression.reset();
      } else {
        results[static_cast<std::size_t>(next)].reset();
      }
      if (results[1]) {
        EXPECT_EQ(utf8(results[1]->getNodeValue()->getNodeName()), "n");
      }
    }
    const Expression again = reading.expression("n");
    const QueryResult half = evaluate(again, reading.branch(0), iterator);
    EXPECT_EQ(nextOf(half), "/0/0/0");
    EXPECT_FALSE(evaluate(again, reading.branch(2), first)->isNode());
    EXPECT_EQ(nextOf(half), "/0/0/1");
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(QueryResults, OutliveTheirQuerysPlaceAmongTheKeptOnes) {
  Branches reading;
  Expression expression = reading.expression("//n");
  const QueryResult held = evaluate(expression, &reading.document, iterator);
  EXPECT_EQ(nextOf(held), "/0/0/0");
  expression.reset();
  std::vector<QueryResult> others;
  for (int i = 0; i < 400; ++i) {
    const Expression other = reading.expression("//n[" + std::to_string(i % 300) + "]/@v");
    QueryResult result = evaluate(other, &reading.document, first);
    EXPECT_EQ(result->isNode() ? utf8(result->getStringValue()) : "none", i % 300 == 1   ? "1"
                                                                          : i % 300 == 2 ? "2"
                                                                                         : "none");
    if (i % 50 == 1) others.push_back(std::move(result));
  }
  EXPECT_EQ(nextOf(held), "/0/0/1");
  EXPECT_EQ(nextOf(held), "/0/1/0");
  EXPECT_EQ(utf8(others.front()->getStringValue()), "1");
  const QueryResult again = evaluate(reading.expression("//n"), &reading.document, iterator);
  EXPECT_EQ(nextOf(again), "/0/0/0");
  EXPECT_EQ(nextOf(held), "/0/1/1");
}

TEST(QueryResults, AreTakenFromAnyDocumentOfTheParser) {
  Branches reading;
  const Expression expression = reading.expression("//n/@v");
  xercesc::DOMDocument& other = reading.engine.read("<r><n v='o'/></r>");
  const QueryResult ofOther = evaluate(expression, &other, first);
  const QueryResult ofFirst = evaluate(expression, &reading.document, first);
  EXPECT_EQ(utf8(ofOther->getStringValue()), "o");
  EXPECT_EQ(utf8(ofFirst->getStringValue()), "1");
  EXPECT_EQ(ofOther->getNodeValue()->getOwnerDocument(), &other);
}

TEST(QueryResults, FailuresLeaveTheExpressionUsable) {
  Branches reading;
  const Expression numbers = reading.expression("for $n in .//@v return 0 + $n");
  const std::string invalid = "XQillaException 51: Invalid lexical value [err:FORG0001] at :1:26";
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(utf8(evaluate(numbers, reading.branch(0), first)->getStringValue()), "1");
    EXPECT_EQ(answerOf([&] { return itemOf(*evaluate(numbers, reading.branch(1), first)); }), invalid);
    const QueryResult broken = evaluate(numbers, &reading.document, iterator);
    EXPECT_EQ(nextOf(broken), "1");
    EXPECT_EQ(nextOf(broken), "2");
    EXPECT_EQ(nextOf(broken), invalid);
    EXPECT_FALSE(evaluate(numbers, reading.branch(2), first)->isNode());
  }
}

TEST(QueryResults, SayWhenTheDocumentWasChangedDuringAnIteration) {
  for (const Engine::Kind kind : Engine::kinds) {
    Branches reading(kind);
    const Expression expression = reading.expression("n");
    const QueryResult result = evaluate(expression, reading.branch(0), iterator);
    EXPECT_FALSE(result->getInvalidIteratorState());
    EXPECT_EQ(nextOf(result), "/0/0/0");
    reading.branch(2)->appendChild(reading.document.createElement(u"n"));
    EXPECT_TRUE(result->getInvalidIteratorState());
    EXPECT_EQ(nextOf(result), "XQillaException 11: Document has changed");
    const QueryResult anew = evaluate(expression, reading.branch(2), iterator);
    EXPECT_EQ(nextOf(anew), "/0/2/0");
  }
}

TEST(QueryResults, RefuseWhatTheirTypeDoesNotGive) {
  for (const Engine::Kind kind : Engine::kinds) {
    Branches reading(kind);
    const Expression expression = reading.expression("//n");
    const QueryResult one = evaluate(expression, &reading.document, first);
    const QueryResult all = evaluate(expression, &reading.document, iterator);
    const std::string requested = " was requested from a XPath2Result of type ";
    const auto refused = [&](const std::string& what, const std::string& from) {
      return std::string("XQillaException 52: ").append(what).append(requested).append(from);
    };
    EXPECT_EQ(nextOf(one), refused("ITERATOR_RESULT", "FIRST_RESULT"));
    for (const auto& [result, type] : {std::pair(&one, "FIRST_RESULT"), std::pair(&all, "ITERATOR_RESULT")}) {
      const QueryResult& refusing = *result;
      const std::string noSnapshot = refused("SNAPSHOT_RESULT", type);
      EXPECT_EQ(answerOf([&] { return std::to_string(refusing->snapshotItem(0)); }), noSnapshot);
      EXPECT_EQ(answerOf([&] { return std::to_string(refusing->getSnapshotLength()); }), noSnapshot);
      EXPECT_FALSE(refusing->getInvalidIteratorState());
    }
    EXPECT_FALSE(all->isNode());  // not before the first step
    EXPECT_EQ(answerOf([&] { return placeOf(all->getNodeValue()); }),
              "XQillaException 11: There is no current result in the result");
  }
}

TEST(QueryResults, OfOtherTypesAreNotSupported) {
  Branches reading;
  const Expression expression = reading.expression("//n");
  for (const auto type : {DOMXPathResult::NUMBER_TYPE, DOMXPathResult::SNAPSHOT_RESULT_TYPE}) {
    EXPECT_EQ(answerOf([&] { return itemOf(*evaluate(expression, &reading.document, type)); }),
              "XQillaException 9: Results are of type first or iterator.");
    EXPECT_EQ(placeOf(evaluate(expression, &reading.document, first)->getNodeValue()), "/0/0/0");
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
