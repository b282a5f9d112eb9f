#pragma once

#include "SchemeState.h"
#include "XSDLoaderImplData.h"

namespace MXF::Tessel::MetaMetadata::Loading {

/// Builds the sets of the state's group elements, in document order, and puts them into its loadedSets; the local tags
/// of their attributes go into its pendingLocalTags. Abstract groups are passed over while they are not loaded.
/// @throws Exceptions::MetaMetadataSetAlreadyLoaded  two groups share a key; the message is the key.
/// @throws the exceptions of GroupKeys.h, TypeResolution.h, AttributeConstruction.h and XmlProperties.h.
void buildGroupSets(XSDLoaderImplData& data, SchemeState& state);

}  // namespace MXF::Tessel::MetaMetadata::Loading
