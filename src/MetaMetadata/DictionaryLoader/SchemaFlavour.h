#pragma once

#include "../XSDLoaderImpl/QuerySet.h"

#include <Templates/Containers.h>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The two forms in which schemas write the identifiers of their annotations.
enum class SchemaFlavour : int {
  Urn = 0,         ///< "urn:SMPTE:MXF:XMLInterface:" and a name.
  RegistryUri = 1  ///< A URI on the standards registry's web host.
};

/// Target namespaces of the multiplex schemas, which tell the flavours apart.
extern const Templates::WideString urnMultiplexNamespace;
extern const Templates::WideString registryMultiplexNamespace;

/// The queries of a flavour. The texts stand from the library's loading to its unloading and never change.
QuerySet queriesOf(SchemaFlavour flavour);

}  // namespace MXF::Tessel::MetaMetadata::Loading
