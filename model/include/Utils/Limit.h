#pragma once

#include <Templates/Containers.h>
#include <Utils/TextConversion.h>

#include <cstddef>

namespace MXF::Tessel::Utils {

/// A named bound on what a document may ask for.
struct Limit {
  std::size_t count;    ///< The most there may be.
  const wchar_t* unit;  ///< Of what, in the plural.
};

/// What an exception says when the limit is exceeded: "Limit exceeded: more than COUNT UNIT".
inline Templates::WideString messageOf(const Limit& limit) {
  return L"Limit exceeded: more than " + toDecimal(static_cast<long long>(limit.count)) + L" " + limit.unit;
}

}  // namespace MXF::Tessel::Utils
