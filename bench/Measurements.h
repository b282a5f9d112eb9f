#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Bench {

/// A piece of work, and what its cost is compared with: seconds of processor time.
struct Cost {
  double work = 0;
  double base = 0;
};

/// Named comparisons of processor time, repeated by Google Benchmark in random order. Each repeat does the work directly
/// after its base, so that what slows the machine for a while slows both.
class Measurements {
 public:
  using Seconds = std::function<double()>;  ///< does the work once and tells the processor seconds that count

  void add(const std::string& name, Seconds work, Seconds base);
  void run(int repetitions);

  /// Of the seconds measured.
  [[nodiscard]] Cost median(const std::string& name) const;
  /// Of the ratios of work to base in each repeat.
  [[nodiscard]] double medianRatio(const std::string& name) const;

 private:
  struct Pending {
    std::string name;
    Seconds work;
    Seconds base;
  };
  std::vector<Pending> pending_;
  std::map<std::string, std::vector<Cost>> costs_;
};

double median(std::vector<double> values);

/// The exponent k of the n^k that fits the costs best (least squares of the logarithms).
double orderOfGrowth(const std::vector<std::pair<int, double>>& costsBySize);

}  // namespace MXF::Tessel::Bench
