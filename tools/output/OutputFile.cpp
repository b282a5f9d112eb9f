#include "output/OutputFile.h"

#include "output/FileDescriptor.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace MXF::Tessel::Tool {

namespace {

constexpr int mostLinks = 40;             // as many as the kernel follows in one path
constexpr int mostNames = 100;            // leftovers of killed runs with our process number are not that many
constexpr mode_t permissionBits = 07777;  // without the file's type

/// The file that a path stands for once symbolic links are followed, also when that file does not exist yet.
std::string followLinks(const std::string& path) {
  std::filesystem::path target(path);
  for (int links = 0; std::filesystem::is_symlink(std::filesystem::symlink_status(target)); ++links) {
    if (links == mostLinks) {
      errno = ELOOP;
      throwSystemError(path);
    }
    target = target.parent_path() / std::filesystem::read_symlink(target);
  }
  return target.string();
}

std::optional<struct stat> statusOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) return status;
  return std::nullopt;
}

/// A new file in the target's directory. It is removed again unless it took the target's name.
class NewFile {
 public:
  /// @param name  what to call the target in an error.
  NewFile(std::string target, std::string name)
      : target_(std::move(target)), name_(std::move(name)), file_(createBeside(std::filesystem::path(target_))) {
    if (!file_) throwSystemError(name_);
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (!temporary_.empty()) ::unlink(temporary_.c_str());
  }

  void copyAccess(const struct stat& status) {
    // Only the superuser may give a file away; keeping our own as the owner is all that is left then.
    if (::fchown(file_.get(), status.st_uid, status.st_gid) != 0 && errno != EPERM) throwSystemError(name_);
    if (::fchmod(file_.get(), status.st_mode & permissionBits) != 0) throwSystemError(name_);
  }

  void write(std::string_view text) { writeAll(file_.get(), text, name_); }

  void takeTargetName() {
    if (::fsync(file_.get()) != 0) throwSystemError(name_);
    if (!file_.close()) throwSystemError(name_);
    if (std::rename(temporary_.c_str(), target_.c_str()) != 0) throwSystemError(name_);
    temporary_.clear();
  }

 private:
  /// @return a negative number when it cannot be made; errno tells why.
  int createBeside(const std::filesystem::path& target) {
    // Not made of the target's name, which may be as long as a name can be.
    const std::string stem = (target.parent_path() / ".mxf-metadict-").string() + std::to_string(::getpid());
    for (int i = 0; i < mostNames; ++i) {
      const std::string candidate = stem + '-' + std::to_string(i);
      const int descriptor = ::open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
      if (descriptor >= 0) temporary_ = candidate;
      if (descriptor >= 0 || errno != EEXIST) return descriptor;
    }
    return -1;
  }

  std::string target_;
  std::string name_;
  std::string temporary_;
  FileDescriptor file_;
};

void writeDirectly(const std::string& path, std::string_view text) {
  FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
  if (!file) throwSystemError(path);
  writeAll(file.get(), text, path);
  if (!file.close()) throwSystemError(path);
}

}  // namespace

void replaceFile(const std::string& path, std::string_view text) {
  const std::optional<struct stat> existing = statusOf(path);
  if (existing && !S_ISREG(existing->st_mode)) return writeDirectly(path, text);
  // A file that is protected from writing shall not be lost because its directory is not.
  if (existing && ::access(path.c_str(), W_OK) != 0) throwSystemError(path);

  NewFile file(followLinks(path), path);
  if (existing) file.copyAccess(*existing);
  file.write(text);
  file.takeTargetName();
}

}  // namespace MXF::Tessel::Tool
