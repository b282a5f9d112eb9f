#pragma once

#include "loading/Failure.h"

#include <Templates/Containers.h>
#include <Utils/SourceLocation.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

struct Rule;

/// A file, or a place in it.
// NOLINTNEXTLINE(bugprone-exception-escape): texts with allocators that are equal are moved without a copy.
struct Place {
  Templates::WideString path;
  std::uint32_t line = 0;    ///< Counted from 1; 0 when the place is the file as a whole.
  std::uint32_t column = 0;  ///< The same, in UTF-16 code units.
};

inline Place placeAt(const Utils::SourceLocation& location) {
  return {shownPath(location.path()), location.line(), location.column()};
}

/// Another place that a finding is about.
struct RelatedPlace {
  Place place;
  std::string message;  ///< What is there.
};

/// Something that a rule holds against the schemas. Texts are those of text/Unicode.h: UTF-8, printable.
struct Finding {
  Finding(Place where, std::string what, std::vector<RelatedPlace> others = {})
      : place(std::move(where)), message(std::move(what)), related(std::move(others)) {}

  Place place;
  std::string message;                ///< What is wrong: a sentence.
  std::vector<RelatedPlace> related;  ///< Where it clashes with, if it does.
  /// The message without what other findings say as well, for people; the message when empty.
  std::string shortMessage;
  std::vector<std::string> namespaces;  ///< What the short message leaves out: of the names in it.
  std::string name;                     ///< Of what it is about, where many findings are told as one.
  std::string remedy;                   ///< What to do: a sentence; that of the rule unless it says more.
  const Rule* rule = nullptr;           ///< Set by check().
};

using Findings = std::vector<Finding>;

}  // namespace MXF::Tessel::Tool
