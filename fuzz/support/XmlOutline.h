#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace MXF::Tessel::Fuzz {

/// Part of a text, from one position to before another.
struct Span {
  std::size_t begin;
  std::size_t end;
};

/// Where the parts of an XML text are. The text need not be well-formed: what makes no sense is passed over.
struct XmlOutline {
  std::vector<Span> elements;    ///< From "<" of the start tag to ">" of the end tag; inner ones before outer ones.
  std::vector<Span> startNames;  ///< The names in start tags, prefix included.
  std::vector<Span> attributes;  ///< From the name to the closing quote.
  std::vector<Span> values;      ///< Attribute values without their quotes, and texts.
};

XmlOutline outlineOf(std::string_view xml);

}  // namespace MXF::Tessel::Fuzz
