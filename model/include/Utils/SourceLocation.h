#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>

#include <cstdint>
#include <memory>
#include <utility>

namespace MXF::Tessel::Utils {

/// A place in a file: where something was declared, or where a fault is. Copies share the path.
class TESSELMXF_MODEL_API SourceLocation {
 public:
  /// One text for all places in a file.
  using Path = std::shared_ptr<const Templates::WideString>;

  /// No place: what was not made from a file.
  SourceLocation() = default;
  /// @param path    shared with all other places in the same file; not null.
  /// @param line    counted from 1.
  /// @param column  counted from 1, in UTF-16 code units of the line.
  SourceLocation(Path path, std::uint32_t line, std::uint32_t column)
      : path_(std::move(path)), line_(line), column_(column) {}

  /// Whether this is a place at all.
  bool isKnown() const { return path_ != nullptr; }
  /// The file's path, as it was opened; empty if this is no place. Valid while any copy of this lives.
  const wchar_t* path() const { return path_ ? path_->c_str() : L""; }
  /// Counted from 1; 0 if this is no place.
  std::uint32_t line() const { return line_; }
  /// Counted from 1, in UTF-16 code units of the line; 0 if this is no place.
  std::uint32_t column() const { return column_; }

  /// "PATH:LINE:COLUMN", or an empty text if this is no place.
  Templates::WideString toString() const;

 private:
  Path path_;
  std::uint32_t line_ = 0;
  std::uint32_t column_ = 0;
};

}  // namespace MXF::Tessel::Utils
