#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace MXF::Tessel::Test {

/// What a process may take. Under sanitizers, which need much more of both, memory is not limited.
struct Budget {
  std::size_t memory = std::size_t{1} << 30U;  ///< Bytes of address space.
  unsigned int seconds = 60;                   ///< Of processor time; only ends what would hang.
};

/// Runs the action in a process of its own and gives the text that it gives, or how the process ended without one:
/// "signal: " and its name, "exit status: " and its number. Under the address sanitizer, memory that the action has
/// leaked is told after its text.
std::string inSandbox(const Budget& budget, const std::function<std::string()>& action);

}  // namespace MXF::Tessel::Test
