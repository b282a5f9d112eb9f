#pragma once

#include "Allocations.h"

#include <functional>
#include <string>
#include <vector>

/// Runs many points, each of which may end the process, in child processes.
namespace MXF::Tessel::Test {

/// The text of a defect: the child does not come back from the point.
constexpr const char* processEnded = "The process ends.";

/// A point that did not end as promised.
struct Defect {
  long point;
  std::string text;                ///< What was found.
  std::vector<std::string> stack;  ///< Functions in which the allocation failed, innermost first, as far as exported.
};

/// Runs the points first to last in a child, and in a new one after each that ends early.
/// @param check  gives what is wrong at a point, empty when nothing is.
std::vector<Defect> defectsIn(long first, long last, const std::function<std::string(long)>& check);

}  // namespace MXF::Tessel::Test
