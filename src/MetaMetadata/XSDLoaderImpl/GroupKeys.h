#pragma once

#include "XSDLoaderImplData.h"

#include <KLV/Key.h>
#include <Templates/auto_ptr.h>

#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The key that a group declaration is annotated with; the caller owns it. Empty for an abstract group while abstract
/// groups are not loaded: such a group is not even asked for its key.
/// @throws Exceptions::SchemeDataMissingException  it has none: "MetaMetadataSet without Key declaration.".
/// @throws Exceptions::InvalidULDesignator  the annotation is no key; the message is its text.
Templates::auto_ptr<KLV::Key> readGroupKey(const XSDLoaderImplData& data, xercesc::DOMElement& group);

/// Whether the declaration's "abstract" attribute is exactly "true".
bool isAbstractGroup(const xercesc::DOMElement& group);

}  // namespace MXF::Tessel::MetaMetadata::Loading
