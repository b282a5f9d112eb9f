#pragma once

#include <Platform/Export.h>

namespace MXF::Tessel {

/// Makes sure that the model library's process-wide tables stand. Thread-safe.
class TESSELMXF_MODEL_API Initializer {
 public:
  /// The first call sets the tables up; every later one only returns.
  static Initializer& instance();

  Initializer(const Initializer&) = delete;
  Initializer& operator=(const Initializer&) = delete;

 private:
  Initializer();
  ~Initializer() = default;
};

}  // namespace MXF::Tessel
