#pragma once

#include "loader/support/TemporaryFolder.h"

#include <string>

namespace MXF::Tessel::Test {

enum class ValueTypes { All, One };

/// Small schemas that reach every step of a load: all element classes, references that are resolved and one that stays
/// pending, a chain of base types that goes on in an import, local tags, documentation, and values of all types or of one.
struct Schemas {
  TemporaryFolder folder;
  std::string multiplex;
  std::string dictionary;
  std::string scheme;
  std::string import;

  explicit Schemas(ValueTypes valueTypes);
};

}  // namespace MXF::Tessel::Test
