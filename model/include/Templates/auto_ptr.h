#pragma once

#include <memory>

namespace MXF::Tessel::Templates {

/// Single owner. Passing it by value hands the object over: auto_ptr<T> taken as a parameter means "takes ownership",
/// returned means "the caller owns it".
template <class T>
using auto_ptr = std::unique_ptr<T>;

}  // namespace MXF::Tessel::Templates
