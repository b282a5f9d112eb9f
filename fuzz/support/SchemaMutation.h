#pragma once

#include <random>
#include <string>
#include <string_view>

/// Changes of schema documents that keep them XML, so that they get past the parser.
namespace MXF::Tessel::Fuzz {

using Random = std::minstd_rand;

/// The text with one change: an element, an attribute, a name or a value is taken away, doubled, moved, or replaced by
/// one of another place or by a word that schemas use. The text as it is when it has nothing to change.
std::string mutateSchema(std::string_view schema, Random& random);

/// The text with an element of the other one put into it, in place of one of its own or beside one.
std::string crossSchemas(std::string_view schema, std::string_view other, Random& random);

}  // namespace MXF::Tessel::Fuzz
