#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>

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
  BaseException(const BaseException& other) noexcept;
  BaseException& operator=(const BaseException& other) noexcept;

  virtual ~BaseException();

  /// The message alone. Valid while the exception lives.
  virtual const wchar_t* message() const;
  /// The message, then " [", the source file of the throw site, ":", its line, and "]". Valid while the exception
  /// lives.
  virtual const wchar_t* what() const;
  /// The class's fixed number (Exceptions/Exceptions.h); 0 for the root itself.
  virtual int code() const;

 private:
  struct Texts {
    Templates::WideString message;
    Templates::WideString what;
  };

  BaseException(Templates::WideString message, const char* sourceFile, int line);

  std::shared_ptr<const Texts> texts_;
};

}  // namespace MXF::Tessel::Exceptions
