// The library beside a host that initialises, uses and terminates Xerces-C and XQilla itself, in every order. Each row is a
// process of its own that does the steps named, ends by exit(), and must do so without a complaint.

#include "HostXerces.h"
#include "loader/support/Loading.h"

#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>

#include <gtest/gtest.h>
#include <xercesc/dom/DOMXPathExpression.hpp>
#include <xercesc/dom/DOMXPathResult.hpp>
#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xqilla/utils/XQillaPlatformUtils.hpp>

#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace MXF::Tessel::Test {
namespace {

using MetaMetadata::Loading::XSDDictionaryLoader2;
using xercesc::XMLPlatformUtils;

void load(XSDDictionaryLoader2& loader) {
  MetaMetadata::Dictionary dictionary;
  loader.loadDictionary(wide(TESSELMXF_SCHEMAS "/urn/dictionary.xsd"), dictionary);
  loader.loadScheme(wide(TESSELMXF_SCHEMAS "/urn/groups.xsd"), dictionary);
  if (dictionary.metaMetadataSetBegin() == dictionary.metaMetadataSetEnd()) throw std::runtime_error("nothing loaded");
}

/// What a host does with XQilla itself. Decimals go through its number library, which has a start-up of its own.
void useXQillaAsHost() {
  using xercesc::DOMXPathResult;
  auto* implementation = xercesc::DOMImplementationRegistry::getDOMImplementation(u"XPath2 3.0");
  const XMLUtils::Released<xercesc::DOMDocument> document(implementation->createDocument());
  const XMLUtils::Released<xercesc::DOMXPathExpression> query(document->createExpression(u"1.5 + 2.5", nullptr));
  const XMLUtils::Released<DOMXPathResult> result(
      query->evaluate(document.get(), DOMXPathResult::FIRST_RESULT_TYPE, nullptr));
  if (result->getIntegerValue() != 4) throw std::runtime_error("not evaluated");
}

/// Made before main() and before the library's first use, so destroyed after whatever the library then makes.
std::unique_ptr<XSDDictionaryLoader2> keptLoader;

XSDDictionaryLoader2& staticLoader() {
  static XSDDictionaryLoader2 loader;
  return loader;
}

/// A host's own memory manager, which lives as long as Xerces-C uses it.
class HostMemory final : public xercesc::MemoryManager {
 public:
  static HostMemory& instance() {
    static HostMemory& memory = *new HostMemory;
    return memory;
  }
  xercesc::MemoryManager* getExceptionMemoryManager() override { return this; }
  void* allocate(XMLSize_t size) override { return ::operator new(size); }
  void deallocate(void* block) override { ::operator delete(block); }
};

const std::map<std::string, std::function<void()>> steps = {
    {"initialize", [] { XMLPlatformUtils::Initialize(); }},
    {"initializeOwnMemory", [] { XMLPlatformUtils::Initialize("en_US", nullptr, nullptr, &HostMemory::instance()); }},
    {"terminate", [] { XMLPlatformUtils::Terminate(); }},
    {"parse", useXercesAsHost},
    {"initializeXQilla", [] { XQillaPlatformUtils::initialize(); }},
    {"terminateXQilla", [] { XQillaPlatformUtils::terminate(); }},
    {"query", useXQillaAsHost},
    {"load", [] { load(*std::make_unique<XSDDictionaryLoader2>()); }},
    {"keep", [] { keptLoader = std::make_unique<XSDDictionaryLoader2>(); }},
    {"loadKept", [] { load(*keptLoader); }},
    {"drop", [] { keptLoader.reset(); }},
    {"loadStatic", [] { load(staticLoader()); }},
};

void run(const std::string& words) {
  std::istringstream input(words);
  for (std::string word; input >> word;) {
    try {
      steps.at(word)();
    } catch (...) {
      std::cerr << "fails: " << word << '\n';
      std::_Exit(1);
    }
  }
}

/// Does the steps that are left for the end of the process, later than all that main() has the library make. It stands
/// after keptLoader and so comes before it.
struct AtExit {
  std::string words;
  ~AtExit() { run(words); }
} atExit;

struct Lifetime {
  const char* name;
  const char* words;
  const char* wordsAtExit = "";
};

void PrintTo(const Lifetime& row, std::ostream* out) {
  *out << row.words << " | " << row.wordsAtExit;
}

class Lifetimes : public testing::TestWithParam<Lifetime> {};

TEST_P(Lifetimes, EndWithoutComplaint) {
  const auto live = [] {
    atExit.words = GetParam().wordsAtExit;
    run(GetParam().words);
    std::exit(0);  // NOLINT(concurrency-mt-unsafe)
  };
  EXPECT_EXIT(live(), testing::ExitedWithCode(0), "^$");
}

const Lifetime lifetimes[] = {
    {"HostNever", "load load"},
    {"HostAround", "initialize parse load parse terminate"},
    {"HostAroundTwice", "initialize load terminate initialize parse load terminate"},
    {"HostBefore", "initialize parse terminate load"},
    {"HostAfter", "load initialize parse terminate"},
    {"HostBeforeAndAfter", "initialize terminate load initialize parse terminate load"},
    {"HostTerminatesBeforeOurLastUse", "initialize keep terminate loadKept initialize parse terminate loadKept drop"},
    {"HostInitialisesAfterOurFirstUse", "keep initialize loadKept parse terminate loadKept"},
    {"HostNeverTerminates", "initialize load parse"},
    {"HostNeverTerminatesAfterOurs", "load initialize parse"},
    {"HostTerminatesAtExit", "initialize load", "parse terminate"},
    {"HostInitialisesLateAndTerminatesAtExit", "load initialize", "parse terminate"},
    {"HostLivesAtExitOnly", "load", "initialize parse terminate"},
    {"HostsMemoryManager", "initializeOwnMemory parse load terminate load", "load"},
    {"LoaderOutlivesMain", "loadStatic"},
    {"LoaderOutlivesMainAndHost", "initialize loadStatic keep loadKept terminate"},
    {"LoaderOutlivesMainAndHostAtExit", "initialize keep loadKept loadStatic", "parse terminate loadKept"},
    {"LoaderAtExitOnly", "", "load"},
    {"LoaderAgainAtExit", "load", "load keep loadKept"},
    {"QueriesAround", "initializeXQilla query load query terminateXQilla load"},
    {"QueriesBefore", "initializeXQilla query terminateXQilla load"},
    {"QueriesAfter", "load initializeXQilla query terminateXQilla load"},
    {"QueriesBetween", "initialize keep initializeXQilla query terminate loadKept query terminateXQilla loadKept"},
    {"QueriesAtExit", "initializeXQilla load", "query terminateXQilla"},
    {"QueriesOverlapping", "initializeXQilla initialize load terminateXQilla query load terminate load"},
};

INSTANTIATE_TEST_SUITE_P(Host, Lifetimes, testing::ValuesIn(lifetimes),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace MXF::Tessel::Test
