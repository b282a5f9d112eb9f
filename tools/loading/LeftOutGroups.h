#pragma once

#include "loading/Failure.h"

#include <Templates/Containers.h>

#include <optional>
#include <string>

namespace MXF::Tessel::Tool {

/// What is lost by a scheme that had to be loaded without abstract groups.
struct LeftOutGroups {
  Failure failure;     ///< That the load with them met; for want of a base, placed where the base is written.
  std::string what;    ///< What is left out: "abstract groups", or "bases".
  std::string why;     ///< The rest of it, after "since".
  std::string remedy;  ///< What to do: sentences; empty for the usual, which is to give a group a key.
  bool isAbstract;     ///< Abstract groups are left out; otherwise bases of sets only.
};

/// @param path     of the scheme.
/// @param failure  that the load with abstract groups met; without them there was none.
/// @param flavour  multiplex namespace of the flavour in use.
/// @return nothing when neither the scheme nor what it imports has an abstract group, and no base is lost.
std::optional<LeftOutGroups> findLeftOutGroups(const Templates::WideString& path, const Failure& failure,
                                               const Templates::WideString& flavour);

/// What to do about a base type that has a group which the loader does not find, since it is not spelled alike: a
/// sentence. Empty when it has none.
/// @param path  of the schema that is loaded.
/// @param base  as the schema has it, such as g:ThingType.
std::string remedyOfSpelling(const Templates::WideString& path, const Templates::WideString& base);

}  // namespace MXF::Tessel::Tool
