#pragma once

#include "MetaMetadata/DictionaryLoader/SchemaFlavour.h"

#include <string>

/// Schema texts of any size, of the kind that SMPTE ST 434 schemas are.
namespace MXF::Tessel::Bench {

using MetaMetadata::Loading::SchemaFlavour;

/// A schema by which a loader takes the flavour.
std::string multiplexSchema(SchemaFlavour flavour);

/// A dictionary of that many element declarations, each with documentation and all annotations. Of every ten, seven
/// have a simple type, one is a collection of numbers, one a strong reference to a group and one a collection of
/// references.
std::string dictionarySchema(SchemaFlavour flavour, int declarations);

/// A scheme of that many groups. Each has ten attributes of its own, with local tags, and all but every fourth derive
/// from the group before.
/// @param elements  how many declarations the dictionary has that it refers to.
std::string schemeSchema(SchemaFlavour flavour, int groups, int elements);

}  // namespace MXF::Tessel::Bench
