#include "output/FileDescriptor.h"

#include <cerrno>
#include <poll.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace MXF::Tessel::Tool {

FileDescriptor::~FileDescriptor() {
  close();
}

bool FileDescriptor::close() {
  const int descriptor = std::exchange(descriptor_, -1);
  return descriptor < 0 || ::close(descriptor) == 0;
}

void throwSystemError(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

void writeAll(int descriptor, std::string_view text, const std::string& name) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      // Somebody made our end of a pipe non-blocking: wait until it takes more.
      pollfd ready{descriptor, POLLOUT, 0};
      ::poll(&ready, 1, -1);
    } else if (errno != EINTR) {
      throwSystemError(name);
    }
  }
}

}  // namespace MXF::Tessel::Tool
