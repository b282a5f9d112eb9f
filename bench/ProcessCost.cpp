#include "ProcessCost.h"

#include <array>
#include <ctime>
#include <fcntl.h>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace MXF::Tessel::Bench {

namespace {

double processorClock() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

}  // namespace

double processorSeconds(const std::function<void()>& action) {
  const double start = processorClock();
  action();
  return processorClock() - start;
}

ProcessCost costOfRunning(const std::vector<std::string>& arguments) {
  std::string program = "/proc/self/exe";
  std::vector<std::string> texts = arguments;
  std::vector<char*> pointers = {program.data()};
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);

  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  pid_t child = 0;
  const bool isStarted = posix_spawn(&child, program.c_str(), &actions, nullptr, pointers.data(), environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);

  int status = 0;
  rusage usage{};
  std::array<char, 32> printed{};
  const bool isDone = isStarted && read(ends[0], printed.data(), printed.size() - 1) > 0 &&
                      wait4(child, &status, 0, &usage) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  close(ends[0]);
  if (!isDone) throw std::runtime_error("the measured process failed");
  return {seconds(usage.ru_utime) + seconds(usage.ru_stime), std::stol(printed.data())};
}

long ownPeakKibibytes() {
  std::ifstream status("/proc/self/status");
  std::string word;
  while (status >> word && word != "VmHWM:") continue;
  long peak = 0;
  status >> peak;
  return peak;
}

}  // namespace MXF::Tessel::Bench
