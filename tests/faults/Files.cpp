#include "Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <set>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace MXF::Tessel::Test::Files {

namespace {

constexpr std::string_view schemaEnding = ".xsd";

struct State {
  const Behaviour* behaviour = nullptr;  // null while no scope lives
  long counts[callCount] = {};
  std::set<int> descriptors;  // of schemas that are open
};
State state;

/// Counts the call. @return whether it is the one that fails.
bool fails(Call call) {
  const long number = ++state.counts[static_cast<std::size_t>(call)];
  const Behaviour& behaviour = *state.behaviour;
  if (behaviour.failing != call || behaviour.failingNumber != number) return false;
  errno = behaviour.error;
  return true;
}

bool isSchema(std::string_view path) {
  return path.size() > schemaEnding.size() && path.substr(path.size() - schemaEnding.size()) == schemaEnding;
}
bool isSchema(int descriptor) {
  return state.behaviour != nullptr && state.descriptors.count(descriptor) != 0;
}

int openFile(const char* path, int flags, mode_t mode) {
  const bool counts = state.behaviour != nullptr && isSchema(path);
  if (counts && fails(Call::Open)) return -1;
  const int descriptor = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
  if (counts && descriptor >= 0) state.descriptors.insert(descriptor);
  return descriptor;
}

ssize_t readSchema(int descriptor, void* buffer, std::size_t size) {
  if (fails(Call::Read)) return -1;
  const Behaviour& behaviour = *state.behaviour;
  const long number = state.counts[static_cast<std::size_t>(Call::Read)];
  if (behaviour.interrupted && number % 2 == 1) {
    errno = EINTR;
    return -1;
  }
  if (number == behaviour.changingRead) behaviour.change();
  const std::size_t most = behaviour.mostBytes == 0 ? size : std::min(size, behaviour.mostBytes);
  return syscall(SYS_read, descriptor, buffer, most);
}

}  // namespace

Scope::Scope(const Behaviour& behaviour) {
  state = {};
  state.behaviour = &behaviour;
}
Scope::~Scope() {
  state.behaviour = nullptr;
}
long Scope::count(Call call) const {
  return state.counts[static_cast<std::size_t>(call)];
}

}  // namespace MXF::Tessel::Test::Files

namespace Files = MXF::Tessel::Test::Files;

extern "C" {

int open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
  }
  return Files::openFile(path, flags, mode);
}

int fstat(int descriptor, struct stat* status) noexcept {
  if (Files::isSchema(descriptor) && Files::fails(Files::Call::Status)) return -1;
  return static_cast<int>(syscall(SYS_fstat, descriptor, status));
}

ssize_t read(int descriptor, void* buffer, std::size_t size) {
  if (Files::isSchema(descriptor)) return Files::readSchema(descriptor, buffer, size);
  return syscall(SYS_read, descriptor, buffer, size);
}
}
