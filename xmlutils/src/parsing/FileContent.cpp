// Reads regular files into memory. Entry point: readFile().

#include "FileContent.h"

#include "DocumentLimits.h"

#include <Exceptions/Exceptions.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace MXF::Tessel::XMLUtils {

using Templates::WideString;

namespace {

class FileDescriptor {
 public:
  explicit FileDescriptor(const char* path) : descriptor_(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (isOpen()) close(descriptor_);
  }

  bool isOpen() const { return descriptor_ >= 0; }
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

[[noreturn]] void throwIOError(const wchar_t* path, const WideString& reason) {
  throw Exceptions::IOError((WideString(path) + L": " + reason).c_str(), "FileContent", __LINE__);
}

[[noreturn]] void throwSystemError(const wchar_t* path, int error) {
  throwIOError(path, Utils::stringToWstring(std::generic_category().message(error).c_str()));
}

std::size_t readSome(const FileDescriptor& file, FileContent& content, std::size_t size, const wchar_t* path) {
  while (true) {
    const ssize_t count = read(file.get(), content.data() + size, content.size() - size);
    if (count >= 0) return static_cast<std::size_t>(count);
    if (errno != EINTR) throwSystemError(path, errno);
  }
}

}  // namespace

std::optional<FileContent> readFile(const wchar_t* path) {
  // Opening alone can wake the writer of a pipe or set off a device, so it is asked before, and again of what was opened.
  const Templates::NarrowString systemPath = Utils::wstringToString(path);
  struct stat status {};
  if (stat(systemPath.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  const FileDescriptor file(systemPath.c_str());
  if (!file.isOpen()) return std::nullopt;
  if (fstat(file.get(), &status) != 0) throwSystemError(path, errno);
  if (!S_ISREG(status.st_mode)) return std::nullopt;

  FileContent content;
  // One byte more than the file has, so that its end shows without growing the buffer; it may grow while it is read.
  content.resize(std::min(static_cast<std::size_t>(status.st_size), Limits::fileSize.count) + 1);
  std::size_t size = 0;
  while (const std::size_t count = readSome(file, content, size, path)) {
    size += count;
    if (size > Limits::fileSize.count) throwIOError(path, messageOf(Limits::fileSize));
    if (size == content.size()) content.resize(std::min(size * 2, Limits::fileSize.count + 1));
  }
  content.resize(size);
  return content;
}

}  // namespace MXF::Tessel::XMLUtils
