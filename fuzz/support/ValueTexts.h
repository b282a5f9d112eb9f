#pragma once

#include <Templates/Containers.h>
#include <Types/BaseType.h>

#include <optional>

namespace MXF::Tessel::Fuzz {

/// A text from which a value of the same type is read that equals the given one. Nothing for a collection with an item
/// whose text holds a comma, which no item of a list can, or with items of so little text that a list of them is too short
/// to be one.
std::optional<Templates::WideString> textOf(const Types::BaseType& value);

}  // namespace MXF::Tessel::Fuzz
