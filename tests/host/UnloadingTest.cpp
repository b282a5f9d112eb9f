// A host that loads a plug-in with the library in it, uses it and unloads it, again and again. The host itself links
// nothing of the library.

#include "HostXerces.h"

#include <gtest/gtest.h>
#include <xercesc/util/PlatformUtils.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <string>

namespace MXF::Tessel::Test {
namespace {

/// Whether the library's shared object is in the process.
bool isLoaded() {
  void* library = dlopen(TESSELMXF_LOADER, RTLD_NOW | RTLD_NOLOAD);
  if (library != nullptr) dlclose(library);
  return library != nullptr;
}

/// Loads the plug-in, has it load our schemas, and unloads it.
void loadUseUnload() {
  void* plugin = dlopen(TESSELMXF_PLUGIN, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(plugin, nullptr) << dlerror();
  const auto loadSchemas = reinterpret_cast<int (*)(const char*)>(dlsym(plugin, "loadSchemas"));
  EXPECT_GT(loadSchemas(TESSELMXF_SCHEMAS "/registry"), 0);
  EXPECT_TRUE(isLoaded());
  EXPECT_EQ(dlclose(plugin), 0) << dlerror();
  EXPECT_FALSE(isLoaded());
}

struct Resources {
  std::size_t bytesInUse = 0;   // always 0 under a sanitizer, whose allocator looks for what is lost by itself
  std::ptrdiff_t mappings = 0;  // of shared objects
  std::ptrdiff_t descriptors = 0;
  std::ptrdiff_t threads = 0;

  static std::ptrdiff_t entries(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
  }
  static Resources now() {
    Resources resources;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);)
      resources.mappings += line.find(".so") == std::string::npos ? 0 : 1;
    resources.descriptors = entries("/proc/self/fd");
    resources.threads = entries("/proc/self/task");
    resources.bytesInUse = mallinfo2().uordblks;
    return resources;
  }

  /// What is in use at the least after each of some rounds: what the dynamic linker sets aside comes and goes with them.
  static Resources afterRounds(int rounds) {
    Resources least = afterRound();
    for (int round = 1; round < rounds && !testing::Test::HasFailure(); ++round) {
      const Resources resources = afterRound();
      least.bytesInUse = std::min(least.bytesInUse, resources.bytesInUse);
      least.mappings = std::min(least.mappings, resources.mappings);
      least.descriptors = std::min(least.descriptors, resources.descriptors);
      least.threads = std::min(least.threads, resources.threads);
    }
    return least;
  }

 private:
  static Resources afterRound() {
    loadUseUnload();
    return now();
  }
};

// What is made once and grows for a while, such as tables of the XML libraries and of the allocator, stops growing in one
// of some periods. What is lost in each round grows in all of them.
TEST(Unloading, HundredRoundsLeakNothing) {
  constexpr int periods = 4;
  constexpr int rounds = 25;
  constexpr std::size_t smallestLoss = 16;  // in each round: half of the smallest block
  Resources::afterRounds(2);
  Resources before = Resources::afterRounds(rounds);
  const Resources first = before;
  std::size_t leastGrowth = SIZE_MAX;
  for (int period = 1; period < periods; ++period) {
    const Resources after = Resources::afterRounds(rounds);
    leastGrowth = std::min(leastGrowth, after.bytesInUse - std::min(after.bytesInUse, before.bytesInUse));
    before = after;
  }
  EXPECT_LT(leastGrowth, smallestLoss * rounds);
  EXPECT_LE(before.descriptors, first.descriptors);
  EXPECT_LE(before.threads, first.threads);
  EXPECT_LE(before.mappings, first.mappings);
}

TEST(Unloading, LeavesTheHostsXercesAsItWas) {
  xercesc::XMLPlatformUtils::Initialize();
  for (int round = 0; round < 3; ++round) {
    loadUseUnload();
    EXPECT_NO_THROW(useXercesAsHost());
  }
  xercesc::XMLPlatformUtils::Terminate();
  xercesc::XMLPlatformUtils::Initialize();
  EXPECT_NO_THROW(useXercesAsHost());
  loadUseUnload();
  xercesc::XMLPlatformUtils::Terminate();
}

}  // namespace
}  // namespace MXF::Tessel::Test
