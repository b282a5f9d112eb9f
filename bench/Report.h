#pragma once

#include <string>
#include <vector>

namespace MXF::Tessel::Bench {

/// What is measured against its bar.
struct Ratio {
  std::string what;
  std::string bar;
  std::string measured;
};

/// The cost of a load beside that of parsing the same files. The ratio is a median of its own, not that of the seconds.
struct Comparison {
  std::string what;
  double parseSeconds;
  double loadSeconds;
  double ratio;
};

std::string withDigits(double value, int digits);

/// Tables in Markdown.
std::string table(const std::vector<Ratio>& ratios);
std::string table(const std::vector<Comparison>& comparisons);

}  // namespace MXF::Tessel::Bench
