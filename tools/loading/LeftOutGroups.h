#pragma once

#include "loading/Failure.h"

#include <Templates/Containers.h>

#include <string>

namespace MXF::Tessel::Tool {

/// Why a scheme had to be loaded without its abstract groups, as the rest of a sentence after "since".
/// @param failure  that the load with them met.
/// @param flavour  multiplex namespace of the flavour in use.
std::string whyGroupsAreLeftOut(const Failure& failure, const Templates::WideString& flavour);

}  // namespace MXF::Tessel::Tool
