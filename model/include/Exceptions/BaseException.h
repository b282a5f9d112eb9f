#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>
#include <Utils/SourceLocation.h>

#include <cstdint>
#include <memory>

namespace MXF::Tessel::Exceptions {

/// Root of all exceptions of the library. Thrown by value, caught by reference. A copy shares the texts and cannot
/// fail.
class TESSELMXF_MODEL_API BaseException {
 public:
  /// @param message     fixed English text, often followed by the offending name; not null, copied.
  /// @param sourceFile  name of the source file, or of the part of the library, that throws.
  /// @param line        line of the throw site.
  BaseException(const wchar_t* message, const char* sourceFile, int line);
  /// The same with a narrow message (UTF-8), which is widened.
  BaseException(const char* message, const char* sourceFile, int line);
  /// A copy shares the texts.
  BaseException(const BaseException& other) noexcept;
  /// Shares the texts of the other from now on.
  BaseException& operator=(const BaseException& other) noexcept;

  virtual ~BaseException();

  /// The message alone. Valid while the exception lives.
  virtual const wchar_t* message() const;
  /// The message, then, if the fault is in a declaration, " (declared at PATH:LINE:COLUMN)", then " [", the source file of
  /// the throw site, ":", its line, and "]". Valid while the exception lives.
  virtual const wchar_t* what() const;
  /// The class's fixed number (Exceptions/Exceptions.h); 0 for the root itself.
  virtual int code() const;

  /// Where in a schema the fault is: the declaration that a pass worked on, or the place that the parser reports.
  /// Unknown for all other failures.
  const Utils::SourceLocation& location() const { return texts_->location; }
  /// Of location(): the path as it was opened, empty if it is not known. Valid while the exception lives.
  const wchar_t* path() const { return location().path(); }
  /// Of location(), counted from 1; 0 if it is not known.
  std::uint32_t line() const { return location().line(); }
  /// Of location(), counted from 1; 0 if it is not known.
  std::uint32_t column() const { return location().column(); }

  /// Tells in which declaration the fault is: in location() and what(), not in message(). Changes this exception alone,
  /// not its copies. Without memory for the text the exception stays as it is.
  void setDeclaration(const Utils::SourceLocation& declaration) noexcept;
  /// Tells where the fault is, in location() alone: for a message that names the place itself.
  void setLocation(const Utils::SourceLocation& location) noexcept;

 private:
  struct Texts {
    Templates::WideString message;
    Templates::WideString throwSite;
    Templates::WideString what;
    Utils::SourceLocation location;
  };

  BaseException(Templates::WideString message, const char* sourceFile, int line);

  std::shared_ptr<const Texts> texts_;
};

}  // namespace MXF::Tessel::Exceptions
