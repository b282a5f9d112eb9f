#pragma once

#include <string>
#include <string_view>

namespace MXF::Tessel::Tool {

/// Owner of an open file descriptor.
class FileDescriptor {
 public:
  /// @param descriptor  taken over; negative for none.
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor();

  explicit operator bool() const { return descriptor_ >= 0; }
  [[nodiscard]] int get() const { return descriptor_; }
  /// Closes the file now. @return whether that worked; if not, errno tells why, and data may be lost.
  bool close();

 private:
  int descriptor_;
};

/// Throws the failure that errno holds.
/// @param what  what the failure is about, such as a file's name.
[[noreturn]] void throwSystemError(const std::string& what);

/// Writes all of the text, however many calls that takes.
/// @param name  what to call the file in an error.
/// @throws std::system_error  not all of it could be written.
void writeAll(int descriptor, std::string_view text, const std::string& name);

}  // namespace MXF::Tessel::Tool
