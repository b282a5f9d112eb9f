#include "support/Contract.h"

#include <cstdlib>
#include <iostream>

namespace MXF::Tessel::Fuzz {

void require(bool isKept, std::string_view promise) {
  if (isKept) return;
  std::cerr << "Broken promise: " << promise << std::endl;
  std::abort();
}

}  // namespace MXF::Tessel::Fuzz
