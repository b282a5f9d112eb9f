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
    // The empty input that stands for an external entity, which it has just been given.
    {"xercesc_3_2::DOMLSParserImpl::resolveEntity(", 1},
    // Its text, while a query that fails is reported.
    {"XStr::XStr(", 1},
    {"XQException::XQException(", 2},
};

/// The modules that XQilla imports when a query has failed without them. It makes their contexts with memory of its own
/// choice.
const char* const moduleImport = "DelayedModule::importModuleInto(";
constexpr long mostBlocksOfModule = 200;

/// The constructor frees its default text before it asks for memory for its own, and its base frees it again when there
/// is none.
const char* const failingReport = "XQillaException::XQillaException(";

/// Functions that hand memory on to their callers; a path stands for functions that are not exported.
const char* const plumbing[] = {"MXF::Tessel::Test::Allocations",
                                "operator new",
                                "backtrace",  // of a sanitizer
                                "::MemoryManagerImpl::allocate(",
                                "XMemory::operator new",
                                "/",
                                "BaseMemoryManager::allocate(",
                                "StringPool::getPooledString("};

bool isLossOfAtMost(long mostBlocks, const std::string& text) {
  for (long count = 1; count <= mostBlocks; ++count) {
    if (text == blocksLost(count)) return true;
  }
  return false;
}

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
  if (maker.rfind(failingReport, 0) == 0) return defect.text == processEnded;
  const bool isImport = std::any_of(defect.stack.begin(), defect.stack.end(),
                                    [](const std::string& function) { return function.rfind(moduleImport, 0) == 0; });
  if (isImport && isLossOfAtMost(mostBlocksOfModule, defect.text)) return true;
  return std::any_of(std::begin(knownLosses), std::end(knownLosses), [&](const auto& known) {
    return maker.rfind(known.maker, 0) == 0 && isLossOfAtMost(known.mostBlocks, defect.text);
  });
}

}  // namespace MXF::Tessel::Test
