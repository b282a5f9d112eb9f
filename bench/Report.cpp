#include "Report.h"

#include <iomanip>
#include <sstream>

namespace MXF::Tessel::Bench {

std::string withDigits(double value, int digits) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(digits) << value;
  return text.str();
}

std::string table(const std::vector<Ratio>& ratios) {
  std::string text = "| What | Measured | Bar |\n|---|---|---|\n";
  for (const Ratio& ratio : ratios) text += "| " + ratio.what + " | " + ratio.measured + " | " + ratio.bar + " |\n";
  return text;
}

std::string table(const std::vector<Comparison>& comparisons) {
  std::string text = "| What | Load / parse | Load, ms | Parse alone, ms |\n|---|---|---|---|\n";
  for (const auto& [what, parse, load, ratio] : comparisons) {
    text += "| " + what + " | " + withDigits(ratio, 2) + " | " + withDigits(load * 1e3, 1) + " | " +
            withDigits(parse * 1e3, 1) + " |\n";
  }
  return text;
}

}  // namespace MXF::Tessel::Bench
