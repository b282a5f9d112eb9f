#pragma once

#include <string>

namespace MXF::Tessel::Test {

/// What a dictionary holds before and after a load, as dumps.
struct Change {
  std::string before;
  std::string after;
};

/// Whether the load has added anything, given what the dictionary holds after it failed.
bool hasAdded(const std::string& dumped, const Change& change);

/// Whether a load that fails may leave this: first some elements as they are after the load, the rest as they were before
/// it; when all are as after it, also the first of what it adds, in its order.
bool isPartOf(const std::string& dumped, const Change& change);

}  // namespace MXF::Tessel::Test
