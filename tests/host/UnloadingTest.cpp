// A host that loads a plug-in with the library in it, uses it and unloads it, again and again. The host itself links
// nothing of the library.

#include "HostXerces.h"

#include <gtest/gtest.h>
#include <xercesc/util/PlatformUtils.hpp>

#include <cstddef>
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
};

TEST(Unloading, HundredRoundsLeakNothing) {
  constexpr int rounds = 100;
  constexpr int firstRounds = 10;  // what is made once, such as the XML libraries' tables, is there after them
  Resources before;
  for (int round = 0; round < rounds && !testing::Test::HasFailure(); ++round) {
    if (round == firstRounds) before = Resources::now();
    loadUseUnload();
  }
  const Resources after = Resources::now();
  // The smallest block takes 32 bytes; less than half of it is lost in each round. Not none, since freed blocks that the
  // allocator sets aside for the thread count as in use.
  EXPECT_LT(after.bytesInUse, before.bytesInUse + 16UL * (rounds - firstRounds));
  EXPECT_LE(after.descriptors, before.descriptors);
  EXPECT_LE(after.threads, before.threads);
  EXPECT_LE(after.mappings, before.mappings);
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
