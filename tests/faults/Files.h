#pragma once

#include <cstddef>
#include <functional>

/// The program's own open(), fstat() and read(), which the libraries that it loads call as well, and which do as they are
/// told with the files of one folder's schemas.
namespace MXF::Tessel::Test::Files {

enum class Call { Open, Status, Read };
constexpr std::size_t callCount = 3;

/// What differs from the system's own; calls are counted from 1.
struct Behaviour {
  std::size_t mostBytes = 0;  ///< That one read() gives; 0 for no limit.
  bool interrupted = false;   ///< Whether every other read() fails with EINTR.
  Call failing = Call::Open;  ///< The call that fails.
  long failingNumber = 0;     ///< Which one of them; 0 for none.
  int error = 0;              ///< What it fails with.
  long changingRead = 0;      ///< Before which read() the change is made; 0 for none.
  std::function<void()> change;
};

/// Counts calls, and behaves so, while it lives.
class Scope {
 public:
  explicit Scope(const Behaviour& behaviour);
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
  ~Scope();

  long count(Call call) const;
};

}  // namespace MXF::Tessel::Test::Files
