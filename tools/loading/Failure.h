#pragma once

#include <Templates/Containers.h>
#include <Utils/SourceLocation.h>

#include <functional>
#include <optional>
#include <string>

namespace MXF::Tessel::Tool {

/// Why a file could not be loaded.
struct Failure {
  std::string className;          ///< Class of the exception, without its namespace.
  std::optional<int> code;        ///< Number of the class; none for exceptions of the XML and standard libraries.
  Templates::WideString message;  ///< May have several lines.
  Utils::SourceLocation place;    ///< Where the fault is; unknown for many.
};

/// Runs the action and gives its failure, or nothing when it returns. An exception of the XML libraries is named by the
/// base class that the libraries document; one of our own family, or of the standard library, by its own class.
std::optional<Failure> failureOf(const std::function<void()>& action);

/// The message without the "PATH:LINE:COLUMN: " that those of the parser begin with; other messages as they are.
Templates::WideString messageWithoutPlace(const Failure& failure);

/// The failure as compilers write theirs, so that editors jump there: "PATH:LINE:COLUMN: error: message [Class]", or
/// without line and column when they are not known. UTF-8; may have as many lines as the message.
/// @param file  named when the failure has no place.
std::string failureLine(const std::string& file, const Failure& failure);

}  // namespace MXF::Tessel::Tool
