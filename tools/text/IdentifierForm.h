#pragma once

#include <Types/StringRepresentation.h>

namespace MXF::Tessel::Tool {

/// How labels, keys and local tags are written in everything that the tool reads and writes.
inline constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;

}  // namespace MXF::Tessel::Tool
