#pragma once

#include <string_view>

/// Checks of what the library promises. A broken promise ends the process, which libFuzzer and ctest report.
namespace MXF::Tessel::Fuzz {

/// Ends the process, after naming the promise, unless it is kept.
void require(bool isKept, std::string_view promise);

/// Runs the action. Any exception but the promised ones leaves this function, and so ends the process where it was
/// thrown.
/// @return whether it ended without exception.
template <class Promised, class... Others, class Action>
bool succeeds(const Action& action) {
  try {
    if constexpr (sizeof...(Others) != 0) return succeeds<Others...>(action);
    action();
    return true;
  } catch (const Promised&) {
    return false;
  }
}

}  // namespace MXF::Tessel::Fuzz
