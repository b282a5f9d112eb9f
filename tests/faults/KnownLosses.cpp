#include "KnownLosses.h"

#include <algorithm>
#include <iterator>

namespace MXF::Tessel::Test {

namespace {

const struct {
  const char* maker;
  long mostBlocks;
} knownLosses[] = {
    // XQilla::createOptimizer(), which is inlined: the optimizers of the chain that it is putting together.
    {"XQilla::parse(", 4},
    {"XQilla::createOptimizer(", 4},
    // An entry of the table of paths that an optimizer puts together.
    {"Scope<QueryPathTreeGenerator::PathResult>::put(", 1},
    // The name that the parser of queries is making.
    {"QualifiedName::QualifiedName(", 1},
    // The chain of results below the one that is being made, one for each step of a path or more.
    {"XQPredicate::iterateResult(", 8},
    {"ClosureResult::create(", 8},
};

/// Functions that hand memory on to their callers; a path stands for functions that are not exported.
const char* const plumbing[] = {"MXF::Tessel::Test::Allocations",
                                "operator new",
                                "::MemoryManagerImpl::allocate(",
                                "XMemory::operator new",
                                "/",
                                "BaseMemoryManager::allocate(",
                                "StringPool::getPooledString("};

bool isPlumbing(const std::string& function) {
  return std::any_of(std::begin(plumbing), std::end(plumbing),
                     [&](const char* part) { return function.find(part) != std::string::npos; });
}

}  // namespace

std::string blocksLost(long count) {
  return "Blocks lost: " + std::to_string(count);
}

std::string makerIn(const std::vector<std::string>& stack) {
  const auto maker = std::find_if_not(stack.begin(), stack.end(), isPlumbing);
  return maker == stack.end() ? "?" : *maker;
}

bool isKnownLoss(const Defect& defect) {
  const std::string maker = makerIn(defect.stack);
  for (const auto& known : knownLosses) {
    if (maker.rfind(known.maker, 0) != 0) continue;
    for (long count = 1; count <= known.mostBlocks; ++count) {
      if (defect.text == blocksLost(count)) return true;
    }
  }
  return false;
}

}  // namespace MXF::Tessel::Test
