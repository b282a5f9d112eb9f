#include "Measurements.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <iostream>

namespace MXF::Tessel::Bench {

namespace {

constexpr const char* baseSeconds = "base";

class Collector : public benchmark::BenchmarkReporter {
 public:
  explicit Collector(std::map<std::string, std::vector<Cost>>& costs) : costs_(costs) {}

  bool ReportContext(const Context& /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
      costs_[run.run_name.function_name].push_back({seconds, run.counters.at(baseSeconds).value});
    }
  }

 private:
  std::map<std::string, std::vector<Cost>>& costs_;
};

template <class Select>
double medianOf(const std::vector<Cost>& costs, Select select) {
  std::vector<double> values;
  for (const Cost& cost : costs) values.push_back(select(cost));
  return median(std::move(values));
}

}  // namespace

void Measurements::add(const std::string& name, Seconds work, Seconds base) {
  pending_.push_back({name, std::move(work), std::move(base)});
}

void Measurements::run(int repetitions) {
  std::vector<std::string> flags = {"loading_benchmark", "--benchmark_enable_random_interleaving=true"};
  std::vector<char*> arguments;
  for (std::string& flag : flags) arguments.push_back(flag.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());

  for (const Pending& pending : pending_) {
    const auto repeat = [&pending](benchmark::State& state) {
      for ([[maybe_unused]] auto iteration : state) {
        state.counters[baseSeconds] = pending.base();
        state.SetIterationTime(pending.work());
      }
    };
    benchmark::RegisterBenchmark(pending.name.c_str(), repeat)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(repetitions);
  }
  Collector collector(costs_);
  benchmark::RunSpecifiedBenchmarks(&collector);
  benchmark::ClearRegisteredBenchmarks();
  pending_.clear();
}

Cost Measurements::median(const std::string& name) const {
  const std::vector<Cost>& costs = costs_.at(name);
  return {medianOf(costs, [](const Cost& cost) { return cost.work; }),
          medianOf(costs, [](const Cost& cost) { return cost.base; })};
}

double Measurements::medianRatio(const std::string& name) const {
  return medianOf(costs_.at(name), [](const Cost& cost) { return cost.work / cost.base; });
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double orderOfGrowth(const std::vector<std::pair<int, double>>& costsBySize) {
  const auto count = static_cast<double>(costsBySize.size());
  double x = 0;
  double y = 0;
  double xx = 0;
  double xy = 0;
  for (const auto& [size, cost] : costsBySize) {
    const double logSize = std::log(size);
    const double logCost = std::log(cost);
    x += logSize;
    y += logCost;
    xx += logSize * logSize;
    xy += logSize * logCost;
  }
  return (count * xy - x * y) / (count * xx - x * x);
}

}  // namespace MXF::Tessel::Bench
