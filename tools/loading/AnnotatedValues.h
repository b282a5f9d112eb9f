#pragma once

#include <Templates/Containers.h>

#include <cstdint>
#include <map>
#include <utility>

namespace MXF::Tessel::Tool {

/// Line and column at which a declaration begins.
using Position = std::pair<std::uint32_t, std::uint32_t>;

/// The distinguished values that a document annotates declarations with, as texts, by the positions of the
/// declarations. Empty ones are left out, and there are none in a document that cannot be read.
/// @param flavour  multiplex namespace of the flavour in use.
std::map<Position, Templates::WideString> annotatedValues(const Templates::WideString& path,
                                                          const Templates::WideString& flavour);

}  // namespace MXF::Tessel::Tool
