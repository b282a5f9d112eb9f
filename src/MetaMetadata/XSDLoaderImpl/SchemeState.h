#pragma once

#include "PropertyAnnotations.h"
#include "SetReferenceResolution.h"
#include "TypeResolution.h"
#include "XPathEvaluation.h"

#include <MetaMetadata/MetaElement.h>
#include <MetaMetadata/MetaMetadataSet.h>
#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>
#include <Types/LocalTag.h>
#include <Types/UID.h>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The dictionary's elements by XML name: namespace URI, ":", tag name. Not owned.
using ElementsByXmlName = Templates::map<Templates::WideString, const MetaElement*>;

/// Sets by the label with their key's bytes.
using LoadedSets = Templates::map<Types::UniversalLabel, Templates::auto_ptr<MetaMetadataSet>>;

/// Local tags with the labels of their elements, in the order in which the attributes were built.
using PendingLocalTags =
    Templates::vector<Templates::pair<Templates::auto_ptr<Types::LocalTag>, Types::UniversalLabel>>;

/// What the scheme pass gathers of one document before it registers any of it.
struct SchemeState {
  ElementsByXmlName elementsByXmlName;
  Elements groupElements;  ///< In document order.
  GroupKeys groupKeysByName;
  LoadedSets loadedSets;
  PendingLocalTags pendingLocalTags;
  KnownTypes knownTypes;
  KnownAnnotations annotations;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
