#include "Comparison.h"

#include <gtest/gtest.h>

namespace MXF::Tessel::Test {

using xercesc::DOMNode;
using xercesc::DOMXPathNSResolver;

Comparison::Side::Side(Engine::Kind kind, const std::string& xml)
    : engine(kind), document(engine.read(xml)), nodes(allNodes(document)) {}

Comparison::Comparison(const std::string& xml) : own_(Engine::Kind::Own, xml), stock_(Engine::Kind::Stock, xml) {}

void Comparison::expectEqualOn(const DOMNode* own, const DOMNode* stock, const std::string& query,
                               const DOMXPathNSResolver* ownResolver, const DOMXPathNSResolver* stockResolver) {
  for (const auto type : {first, iterator}) {
    const std::string answer = evaluated(own_.document, own, query, ownResolver, type);
    const LeaksOfXQilla guard;
    EXPECT_EQ(answer, evaluated(stock_.document, stock, query, stockResolver, type))
        << query << " on " << placeOf(own) << " for results of type " << type;
  }
}

void Comparison::expectEqual(const std::string& query, const Bindings& bindings, std::size_t step) {
  const DOMXPathNSResolver* ownResolver = bindings.on(own_.document);
  const DOMXPathNSResolver* stockResolver = bindings.on(stock_.document);
  ASSERT_EQ(own_.nodes.size(), stock_.nodes.size());
  expectEqualOn(nullptr, nullptr, query, ownResolver, stockResolver);
  for (std::size_t i = 0; i < own_.nodes.size(); i += step) {
    expectEqualOn(own_.nodes[i], stock_.nodes[i], query, ownResolver, stockResolver);
  }
}

void Comparison::expectEqual(const std::vector<std::string>& queries, const Bindings& bindings, std::size_t step) {
  for (const std::string& query : queries) expectEqual(query, bindings, step);
}

std::string Comparison::firstOf(const std::string& query, const Bindings& bindings) {
  expectEqualOn(own_.nodes.front(), stock_.nodes.front(), query, bindings.on(own_.document),
                bindings.on(stock_.document));
  return answerOf([&] {
    const Expression expression = expressionOf(own_.document, query, bindings.on(own_.document));
    const QueryResult result = evaluate(expression, own_.nodes.front(), first);
    return result->isNode() ? placeOf(result->getNodeValue()) : "no node";
  });
}

}  // namespace MXF::Tessel::Test
