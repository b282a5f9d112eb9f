#pragma once

#include <MetaMetadata/MetaElement.h>

#include <vector>

namespace MXF::Tessel::Tool {

/// A set that an element refers to and that no scheme has declared.
struct PendingReference {
  Templates::WideString setName;  ///< XML name of the group.
  Templates::WideString namespaceUri;
};

/// The references of an element that are still to be resolved, in the order of its schema.
std::vector<PendingReference> pendingReferences(const MetaMetadata::MetaElement& element);

}  // namespace MXF::Tessel::Tool
