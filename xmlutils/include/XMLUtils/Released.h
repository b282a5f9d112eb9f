#pragma once

#include <memory>

namespace MXF::Tessel::XMLUtils {

/// Gives an object back with its release().
struct Release {
  /// @param object  not null, and not used afterwards.
  template <class T>
  void operator()(T* object) const {
    object->release();
  }
};

/// Scope guard of a DOM object that is given back with its release(): a parser, an expression, a result.
template <class T>
using Released = std::unique_ptr<T, Release>;

}  // namespace MXF::Tessel::XMLUtils
