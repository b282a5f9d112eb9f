// Feeds files to a fuzz target where there is no libFuzzer: the files, and those in the folders, that are named as
// arguments. Options of libFuzzer are passed over, so that one command line serves both.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using std::filesystem::path;

void addFiles(const path& named, std::set<path>& files) {
  if (!std::filesystem::is_directory(named)) {
    files.insert(named);
    return;
  }
  for (const auto& entry : std::filesystem::directory_iterator(named)) addFiles(entry.path(), files);
}

void replay(const path& file) {
  std::cout << file.string() << std::endl;  // before the run: the last one named is the one that failed
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::filesystem::filesystem_error("cannot read", file, {});
  std::ostringstream content;
  content << stream.rdbuf();
  const std::string input = content.str();
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): an exception that leaves a target is to end the process.
int main(int argc, char* argv[]) {
  std::set<path> files;
  for (int i = 1; i < argc; ++i) {
    if (*argv[i] != '-') addFiles(argv[i], files);
  }
  if (files.empty()) {
    std::cerr << "nothing to replay\n";
    return 1;
  }
  for (const path& file : files) replay(file);
}
