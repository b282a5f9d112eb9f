#pragma once

#include <Templates/Containers.h>

/// Text form of the sets that a reference element may point at but that no scheme document has declared yet: per set
/// "[", the group's name, ",", the namespace of its schema, "];".
namespace MXF::Tessel::MetaMetadata::Loading {

/// Group name to namespace URI, by name.
using PendingSetReferences = Templates::map<Templates::WideString, Templates::WideString>;

/// Appends one item.
void appendPendingReference(Templates::WideString& text, const Templates::WideString& name,
                            const Templates::WideString& namespaceUri);

/// Reads all items; of two with one name the first counts. Reading ends at an item that is too short to be one. An item
/// without "," or "]" runs to its end.
PendingSetReferences parsePendingReferences(const Templates::WideString& text);

/// All items, in name order.
Templates::WideString formatPendingReferences(const PendingSetReferences& references);

}  // namespace MXF::Tessel::MetaMetadata::Loading
