#pragma once

#include <kainjow/mustache.hpp>

#include <string>
#include <string_view>

/// What the report's templates are filled with. A template looks for what an object does not have in the objects around
/// it; so every object has all that its template asks for, and what is not there is false.
namespace MXF::Tessel::Tool {

using TemplateData = kainjow::mustache::data;

/// A list that is being made. Items are moved into it.
using TemplateList = kainjow::mustache::list;

/// @param text  printable.
TemplateData templateText(std::u32string_view text);

/// The text, or false when it is empty.
TemplateData textOrNothing(std::u32string_view text);

/// A number as the page shows it.
TemplateData templateNumber(std::size_t number);

/// An object with the items and their count, or false when there are none.
TemplateData itemsOrNothing(const TemplateList& items);

}  // namespace MXF::Tessel::Tool
