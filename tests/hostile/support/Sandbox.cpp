#include "Sandbox.h"

#include "loader/support/Sanitizers.h"

#include <array>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef TESSELMXF_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

namespace MXF::Tessel::Test {

namespace {

void limit(int resource, rlim_t amount) {
  const rlimit both{amount, amount + 1};  // the signal of the first tells what was exceeded
  if (setrlimit(static_cast<__rlimit_resource>(resource), &both) != 0) throw std::runtime_error("setrlimit");
}

void takeLimits(const Budget& budget) {
#if defined(TESSELMXF_ADDRESS_SANITIZER) || defined(TESSELMXF_THREAD_SANITIZER)
  constexpr unsigned int slowdown = 20;
  limit(RLIMIT_CPU, rlim_t{budget.seconds} * slowdown);
#else
  limit(RLIMIT_CPU, budget.seconds);
  limit(RLIMIT_AS, budget.memory);
#endif
  limit(RLIMIT_CORE, 0);
}

std::string leaks() {
#ifdef TESSELMXF_ADDRESS_SANITIZER
  if (__lsan_do_recoverable_leak_check() != 0) return "\nLEAKED";
#endif
  return {};
}

[[noreturn]] void runChild(int output, const Budget& budget, const std::function<std::string()>& action) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);  // a load that blocks ends with the test
  int status = 1;
  try {
    takeLimits(budget);
    std::string text = action();
    text += leaks();
    std::size_t written = 0;
    while (written < text.size()) {
      const ssize_t count = write(output, text.data() + written, text.size() - written);
      if (count < 0) break;
      written += static_cast<std::size_t>(count);
    }
    status = written == text.size() ? 0 : 1;
  } catch (...) {
    status = 2;
  }
  _exit(status);
}

std::string readAll(int input) {
  std::string text;
  std::array<char, 65'536> buffer;
  while (true) {
    const ssize_t count = read(input, buffer.data(), buffer.size());
    if (count <= 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

std::string inSandbox(const Budget& budget, const std::function<std::string()>& action) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("pipe");
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("fork");
  if (child == 0) {
    close(ends[0]);
    runChild(ends[1], budget, action);
  }
  close(ends[1]);
  std::string text = readAll(ends[0]);
  close(ends[0]);
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("waitpid");
  if (WIFSIGNALED(status)) return std::string("signal: ") + strsignal(WTERMSIG(status));
  if (WEXITSTATUS(status) != 0) return "exit status: " + std::to_string(WEXITSTATUS(status));
  return text;
}

}  // namespace MXF::Tessel::Test
