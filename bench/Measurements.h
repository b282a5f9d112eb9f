#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Bench {

/// Named measurements of processor time, repeated by Google Benchmark in random order, so that what disturbs the
/// machine for a while disturbs all of them alike.
class Measurements {
 public:
  /// @param seconds  does the work once and tells the processor seconds that count.
  void add(const std::string& name, std::function<double()> seconds);
  void run(int repetitions);

  /// Of the seconds measured.
  [[nodiscard]] double median(const std::string& name) const;

 private:
  std::vector<std::pair<std::string, std::function<double()>>> pending_;
  std::map<std::string, std::vector<double>> seconds_;
};

double median(std::vector<double> values);

/// The exponent k of the n^k that fits the costs best (least squares of the logarithms).
double orderOfGrowth(const std::vector<std::pair<int, double>>& costsBySize);

}  // namespace MXF::Tessel::Bench
