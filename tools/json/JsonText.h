#pragma once

#include <Templates/Containers.h>

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace MXF::Tessel::Tool {

/// A JSON value whose objects keep the order in which their members were added.
using Json = nlohmann::ordered_json;

/// A JSON string of any text of UTF-16 code units. One with lone surrogates can be written by writeJson() only.
Json jsonString(const Templates::WideString& text);

/// The value as a document: UTF-8, two blanks per level, a line break at the end. A lone surrogate, which UTF-8 cannot
/// express, is written as its escape, such as \ud83d; so are characters that a terminal would act on.
std::string writeJson(const Json& value);

/// The string as JSON writes it, quotation marks included.
std::string quoted(const Templates::WideString& text);

}  // namespace MXF::Tessel::Tool
