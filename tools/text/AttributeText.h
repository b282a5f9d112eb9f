#pragma once

#include <MetaMetadata/MetaAttribute.h>

#include <string>

/// What people are told about one attribute of a set. All texts are printable.
namespace MXF::Tessel::Tool {

/// The local tag, or the empty text when there is none.
std::u32string tagText(const MetaMetadata::MetaAttribute& attribute);

/// The status word, such as "Req".
std::u32string statusText(const MetaMetadata::MetaAttribute& attribute);

/// The distinguished value, or the empty text when there is none.
std::u32string distinguishedText(const MetaMetadata::MetaAttribute& attribute);

}  // namespace MXF::Tessel::Tool
