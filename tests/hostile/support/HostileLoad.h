#pragma once

#include "Sandbox.h"
#include "loader/support/SchemaBuilder.h"
#include "loader/support/TemporaryFolder.h"

#include <cstddef>
#include <string>

/// Loads of hostile files. Every load runs in a sandbox, and afterwards its loader must load good schemas as a fresh one
/// does.
namespace MXF::Tessel::Test {

enum class Load { Multiplex, Dictionary, Scheme };

/// A folder of files, "F" in outcomes.
class HostileFiles : public TemporaryFolder {
 public:
  /// What the load of a file ends with: outcomeOf() a failure, or the dictionary as dump() writes it, of a scheme only
  /// its sets and local tags, without properties. Large dictionaries are counted: "5000 elements, 0 sets, 0 attributes".
  /// More than thirty equal characters in a row become one and their number: "n{10000000}". A loader that is not usable
  /// afterwards adds what it does then.
  ///
  /// The dictionary of a scheme has the elements of "elements.xsd" beside it or, without such a file, these of
  /// namespace "urn:t": A, B and C of type Int32 (L01 to L03), the text S (L04) and the array N of Int8 (L05).
  std::string outcome(Load load, const std::string& file, const Budget& budget = {}) const;
};

/// Expects the outcome of a text that is the only file, "hostile.xsd".
void expectOutcome(const std::string& what, Load load, const std::string& text, const std::string& expected,
                   const Budget& budget = {});

/// A document that has exceeded a limit. @param place  "LINE:COLUMN", by default of the root element's line.
std::string limitExceeded(const std::string& place, const std::string& limit);
/// A load that has.
std::string loadLimitExceeded(const std::string& limit);

/// The texts that a maker gives for 0, 1, ...
template <class Maker>
std::string repeated(std::size_t count, Maker maker) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += maker(i);
  return text;
}
inline std::string times(std::size_t count, const std::string& text) {
  return repeated(count, [&](std::size_t) { return text; });
}
inline std::string numbered(const std::string& text, std::size_t number) {
  return text + std::to_string(number);
}

/// What a dictionary schema with the one element declaration element("A", 1, "Int32") gives.
extern const std::string elementA;

}  // namespace MXF::Tessel::Test
