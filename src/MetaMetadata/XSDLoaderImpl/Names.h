#pragma once

#include <Templates/Containers.h>

/// Small operations on qualified names, paths and query texts.
namespace MXF::Tessel::MetaMetadata::Loading {

/// The characters before the first colon; the whole name when it has none.
Templates::WideString qnamePrefix(Templates::WideString name);
/// The characters after the first colon; the whole name when it has none.
Templates::WideString qnameLocalPart(Templates::WideString name);

/// Turns every backslash into a slash.
void toForwardSlashes(Templates::WideString& path);

/// The text as a string literal of a query: in apostrophes, with each of its own doubled, so that no name can end the
/// literal.
Templates::WideString queryLiteral(const Templates::WideString& text);

}  // namespace MXF::Tessel::MetaMetadata::Loading
