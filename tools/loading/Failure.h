#pragma once

#include <Templates/Containers.h>

#include <functional>
#include <optional>
#include <string>

namespace MXF::Tessel::Tool {

/// Why a file could not be loaded.
struct Failure {
  std::string className;          ///< Class of the exception, without its namespace.
  std::optional<int> code;        ///< Number of the class; none for exceptions of the XML and standard libraries.
  Templates::WideString message;  ///< May have several lines.
};

/// Runs the action and gives its failure, or nothing when it returns. An exception of the XML libraries is named by the
/// base class that the libraries document; one of our own family, or of the standard library, by its own class.
std::optional<Failure> failureOf(const std::function<void()>& action);

}  // namespace MXF::Tessel::Tool
