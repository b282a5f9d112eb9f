#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What was probably meant by a mistyped word.
namespace MXF::Tessel::Tool {

/// How many letters have to be inserted, left out, replaced, or exchanged with their neighbour to make one text the
/// other.
std::size_t editDistance(std::u32string_view a, std::u32string_view b);

/// Whether one text may be the other one mistyped: few edits for its length, case not counted in ASCII letters.
bool isSimilar(std::u32string_view given, std::u32string_view known);

/// The known words that a given one comes closest to, if it comes close enough to any: those that begin with it, else
/// those with the fewest edits. In their order.
/// @param given  ASCII, like the known words.
std::vector<std::string> nearest(std::string_view given, const std::vector<std::string>& known);

}  // namespace MXF::Tessel::Tool
