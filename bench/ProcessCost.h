#pragma once

#include <functional>
#include <string>
#include <vector>

/// What work costs: processor time, which other work on the machine disturbs less than it does the clock, and memory.
namespace MXF::Tessel::Bench {

/// Processor seconds that the action takes in this process.
double processorSeconds(const std::function<void()>& action);

struct ProcessCost {
  double processorSeconds;
  long peakKibibytes;
};

/// Runs this program again with these arguments and waits for its end. What it prints is its ownPeakKibibytes(): the
/// system's account of a child begins with what its parent had.
/// @throws std::runtime_error  it fails.
ProcessCost costOfRunning(const std::vector<std::string>& arguments);

/// The most memory that this process has had in use.
long ownPeakKibibytes();

}  // namespace MXF::Tessel::Bench
