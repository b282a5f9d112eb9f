#pragma once

namespace MXF::Tessel::Platform::Synchronization {

/// Adds one to the counter in one indivisible step. @return the counter's new value.
inline int interlockedIncrement(int& counter) noexcept {
  return __atomic_add_fetch(&counter, 1, __ATOMIC_ACQ_REL);
}

/// Takes one from the counter in one indivisible step. @return the counter's new value.
inline int interlockedDecrement(int& counter) noexcept {
  return __atomic_sub_fetch(&counter, 1, __ATOMIC_ACQ_REL);
}

}  // namespace MXF::Tessel::Platform::Synchronization
