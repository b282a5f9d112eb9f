#pragma once

#include <Utils/SourceLocation.h>

#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// Something to know about another place than that of a failure.
struct PlacedNote {
  Utils::SourceLocation place;
  std::string text;
};

/// What a user is told of a failure beside its message. UTF-8 with the bytes of paths as given.
struct Explanation {
  /// What the message is about, when it is nothing but a text of the schema: a phrase.
  std::string meaning;
  std::string remedy;  ///< What may be wrong and what to do: sentences. Empty when there is nothing to say.
  std::vector<PlacedNote> related;  ///< Declarations that the one at fault clashes with.
};

}  // namespace MXF::Tessel::Tool
