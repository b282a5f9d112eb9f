#pragma once

#include <Templates/Containers.h>
#include <Utils/TextConversion.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace MXF::Tessel::Test {

inline std::string narrow(const wchar_t* text) {
  const Templates::NarrowString utf8 = Utils::wstringToString(text);
  return {utf8.begin(), utf8.end()};
}
inline std::string narrow(const Templates::WideString& text) {
  return narrow(text.c_str());
}
inline Templates::WideString wide(const std::string& text) {
  return Utils::stringToWstring(text.c_str());
}

/// A folder of one test's own, removed with everything in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "loader-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// Path of a file in the folder, whether there or not.
  std::string path(const std::string& file) const { return path_ + "/" + file; }

  /// Writes a file, its folders included. @return its path.
  std::string write(const std::string& file, const std::string& content) const {
    std::string target = path(file);
    std::filesystem::create_directories(std::filesystem::path(target).parent_path());
    std::ofstream(target, std::ios::binary) << content;
    return target;
  }

 private:
  std::string path_;
};

}  // namespace MXF::Tessel::Test
