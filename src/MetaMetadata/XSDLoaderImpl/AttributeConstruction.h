#pragma once

#include "SchemeState.h"
#include "XSDLoaderImplData.h"

#include <MetaMetadata/MetaAttribute.h>
#include <Templates/auto_ptr.h>

#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// Builds the attribute that a property declaration of a group describes; the caller owns it. Its element is looked up
/// in the state's elementsByXmlName; its local tag, if it has one, is also put into pendingLocalTags.
/// @param index  position of the declaration among those of its set, from 0.
/// @throws Exceptions::SchemeDataMissingException  "MetaMetadataSet without RequiredStatus.", or the declaring document
///         has no target namespace.
/// @throws Exceptions::NotFound  the element is not known: "The " reference " not MetaElement not found in
///         Dictionary.".
/// @throws Exceptions::InvalidValue, Exceptions::InvalidULDesignator  status, tag or distinguished value cannot be
///         read.
Templates::auto_ptr<MetaAttribute> buildAttribute(const XSDLoaderImplData& data, xercesc::DOMElement& declaration,
                                                  int index, SchemeState& state);

}  // namespace MXF::Tessel::MetaMetadata::Loading
