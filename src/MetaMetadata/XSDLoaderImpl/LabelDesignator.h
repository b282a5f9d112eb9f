#pragma once

#include <Templates/Containers.h>

namespace MXF::Tessel::MetaMetadata::Loading {

/// Checks the length of an annotated label or key, 47 code units; its content is checked by whoever parses it.
/// @throws Exceptions::InvalidULDesignator  any other length; the message is the text.
void checkULDesignator(const Templates::WideString& text);

}  // namespace MXF::Tessel::MetaMetadata::Loading
