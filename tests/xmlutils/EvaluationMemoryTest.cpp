// Memory does not grow with the number of evaluations.

#include "support/Engine.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOMElement.hpp>

#include <functional>
#include <malloc.h>

namespace MXF::Tessel::Test {
namespace {

long bytesInUse() {
  return static_cast<long>(mallinfo2().uordblks);
}

/// How many more bytes are in use after many evaluations than after few.
long growth(const std::function<void(int)>& evaluation, int few = 1000, int many = 20000) {
  for (int i = 0; i < few; ++i) evaluation(i);
  const long before = bytesInUse();
  for (int i = few; i < many; ++i) evaluation(i);
  return bytesInUse() - before;
}

TEST(EvaluationMemory, StaysTheSameHoweverManyThereAre) {
  if (bytesInUse() == 0) GTEST_SKIP() << "the allocator does not count";
  Engine engine;
  xercesc::DOMDocument& document = engine.read("<r xmlns:p='urn:p'><n v='1'/><n v='2'/><p:n w='x'/></r>");
  auto* resolver = document.createNSResolver(document.getDocumentElement());
  const auto run = [&](const std::string& query, auto type) {
    return evaluated(document, &document, query, resolver, type);
  };
  const auto text = [](const std::string& before, int i, const std::string& after) {
    return before + std::to_string(i) + after;
  };
  const struct {
    const char* what;
    std::function<void(int)> evaluation;
  } cases[] = {
      {"first result", [&](int) { run("//n[@v='2']", first); }},
      {"iteration", [&](int) { run("//n", iterator); }},
      {"iteration that is left half-way",
       [&](int) { evaluate(expressionOf(document, "//n", resolver), &document, iterator)->iterateNext(); }},
      {"atomic values", [&](int) { run("for $n in //@v return concat($n, 'x')", iterator); }},
      {"failure to evaluate", [&](int) { run("0 + //@w", first); }},
      {"failure to evaluate, built in", [&](int) { run("exactly-one(//n)", first); }},
      {"rebinding",
       [&](int i) {
         resolver->addNamespaceBinding(u"p", i % 2 == 0 ? u"urn:p" : u"urn:q");
         run("//p:n", first);
       }},
  };
  constexpr long slack = 128L * 1024;
  for (const auto& [what, evaluation] : cases) EXPECT_LT(growth(evaluation), slack) << what;
  // Compiling takes longer, and what is kept of the last texts is more.
  constexpr long keptTexts = 8L * 1024 * 1024;
  EXPECT_LT(growth([&](int i) { run(text("//n[@v='", i, "']"), first); }), keptTexts) << "different texts";
  EXPECT_LT(growth([&](int i) { run(text("//n[", i % 3000, ""), first); }, 300, 3000), keptTexts) << "syntax errors";
}

}  // namespace
}  // namespace MXF::Tessel::Test
