#pragma once

#include "text/Unicode.h"

#include <Types/StringRepresentation.h>

#include <cstddef>
#include <string>

namespace MXF::Tessel::Tool {

/// How labels, keys and local tags are written in everything that the tool reads and writes.
inline constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;

/// A label, key or local tag, printable.
template <class Identifier>
std::string identifierText(const Identifier& identifier) {
  return encode(printable(identifier.toString(textForm)));
}

/// The byte of a label or key that gives the version of the registry which defines it (SMPTE ST 336).
inline constexpr std::size_t versionByte = 7;

}  // namespace MXF::Tessel::Tool
