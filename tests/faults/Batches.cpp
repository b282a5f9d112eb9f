#include "Batches.h"

#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <memory>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" int __lsan_do_recoverable_leak_check() __attribute__((weak));

namespace MXF::Tessel::Test {

namespace {

/// What a child tells its parent, in memory that they share: where it is, and up to one defect.
struct Report {
  long point;
  char text[16000];
  Allocations::Stack stack;
};

class SharedReport {
 public:
  SharedReport() {
    void* memory = mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
    report_ = static_cast<Report*>(memory);
  }
  SharedReport(const SharedReport&) = delete;
  SharedReport& operator=(const SharedReport&) = delete;
  ~SharedReport() { munmap(report_, sizeof(Report)); }
  Report* operator->() const { return report_; }

 private:
  Report* report_;
};

constexpr int endedWell = 0;
constexpr int foundDefect = 3;

std::string functionAt(void* address) {
  Dl_info info{};
  if (dladdr(address, &info) == 0) return "?";
  if (info.dli_sname == nullptr) return info.dli_fname == nullptr ? "?" : info.dli_fname;
  int status = 0;
  const std::unique_ptr<char, void (*)(void*)> readable(abi::__cxa_demangle(info.dli_sname, nullptr, nullptr, &status),
                                                        std::free);
  return readable ? readable.get() : info.dli_sname;
}

std::vector<std::string> functionsOf(const Allocations::Stack& stack) {
  std::vector<std::string> functions;
  for (int i = 0; i < stack.size; ++i) functions.push_back(functionAt(stack.frames[i]));
  return functions;
}

[[noreturn]] void endWithDefect(const SharedReport& report, const char* text) {
  std::strncpy(report->text, text, sizeof report->text - 1);
  _exit(foundDefect);
}

/// Nothing leaves a child, or it would go on as its parent.
[[noreturn]] void runPoints(const SharedReport& report, long last,
                            const std::function<std::string(long)>& check) noexcept {
  Allocations::recordStackIn(&report->stack);
  for (; report->point <= last; ++report->point) {
    report->stack.size = 0;
    const std::string text = check(report->point);
    if (text.empty()) continue;
    endWithDefect(report, text.c_str());
  }
  report->stack.size = 0;
  if (__lsan_do_recoverable_leak_check != nullptr && __lsan_do_recoverable_leak_check() != 0) {
    endWithDefect(report, "The leak sanitizer reports a leak.");
  }
  _exit(endedWell);
}

int statusOf(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("no status of the child");
  return status;
}

}  // namespace

std::vector<Defect> defectsIn(long first, long last, const std::function<std::string(long)>& check) {
  std::vector<Defect> defects;
  const SharedReport report;
  for (report->point = first; report->point <= last; ++report->point) {
    report->text[0] = '\0';
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) runPoints(report, last, check);
    const int status = statusOf(child);
    if (WIFEXITED(status) && WEXITSTATUS(status) == endedWell) break;
    const bool crashed = !WIFEXITED(status) || WEXITSTATUS(status) != foundDefect;
    defects.push_back({report->point, crashed ? processEnded : report->text, functionsOf(report->stack)});
  }
  return defects;
}

}  // namespace MXF::Tessel::Test
