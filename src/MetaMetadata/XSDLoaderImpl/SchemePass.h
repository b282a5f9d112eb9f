#pragma once

#include "XSDLoaderImplData.h"

#include <MetaMetadata/Dictionary.h>

#include <xercesc/dom/DOMDocument.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// Turns the group declarations of a scheme document into sets, and resolves the dictionary's pending set references
/// that name its groups. No set or tag is registered unless all sets could be built; resolved references stay resolved.
void processSchemeDocument(XSDLoaderImplData& data, xercesc::DOMDocument& document, Dictionary& dictionary);

}  // namespace MXF::Tessel::MetaMetadata::Loading
