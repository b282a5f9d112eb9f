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

/// What stands for the class of an exception when a file is of another kind or flavour than it was given as; the same as
/// the rule of check.
inline constexpr const char* wrongFileClass = "wrong-file";

/// Runs the action and gives its failure, or nothing when it returns. An exception of the XML libraries is named by the
/// base class that the libraries document; one of our own family, or of the standard library, by its own class.
std::optional<Failure> failureOf(const std::function<void()>& action);

/// The message without the "PATH:LINE:COLUMN: " that those of the parser begin with; other messages as they are.
Templates::WideString messageWithoutPlace(const Failure& failure);

/// The path as it is printed: without the "./" that the location of an import adds, in its middle or, beside a scheme
/// that is given without a folder, before it.
Templates::WideString shownPath(const Templates::WideString& path);

/// Whether two paths are spelled alike or lead to one file.
bool isSameFile(const Templates::WideString& a, const Templates::WideString& b);

/// "PATH:LINE:COLUMN" as it is printed, or the file when the place is not known.
std::string shownPlace(const Utils::SourceLocation& place, const std::string& file);

}  // namespace MXF::Tessel::Tool
