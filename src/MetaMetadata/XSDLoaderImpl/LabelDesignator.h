#pragma once

#include <Templates/Containers.h>
#include <Types/StringRepresentation.h>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The text form in which schemas write labels, keys and local tags, and in which messages and properties give them.
inline constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;

/// Checks the length of an annotated label or key, 47 code units; its content is checked by whoever parses it.
/// @throws Exceptions::InvalidULDesignator  any other length; the message is the text.
void checkULDesignator(const Templates::WideString& text);

}  // namespace MXF::Tessel::MetaMetadata::Loading
