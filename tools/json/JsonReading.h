#pragma once

#include "json/JsonText.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace MXF::Tessel::Tool {

/// Bounds of what is read. They are far above what the tool writes, and keep a hostile document from taking all memory
/// or time: containers nest on the stack, and members of an object are looked up one after the other.
constexpr std::size_t maximumJsonDepth = 16;
constexpr std::size_t maximumJsonMembers = 64;
constexpr std::size_t maximumJsonValues = 4'000'000;

/// Why a text is no JSON that can be read. The place is where that was found.
class JsonFault : public std::runtime_error {
 public:
  JsonFault(const std::string& reason, std::size_t atLine, std::size_t atColumn)
      : std::runtime_error(reason), line(atLine), column(atColumn) {}

  std::size_t line;    ///< From 1; 0 when it is not known.
  std::size_t column;  ///< From 1, in characters; 0 when it is not known.
};

/// The document of writeJson(), lone surrogates included.
/// @throws JsonFault       it is no JSON, or exceeds the bounds.
/// @throws std::bad_alloc  there is not enough memory for it.
Json readJson(const std::string& text);

}  // namespace MXF::Tessel::Tool
