#pragma once

#include <Templates/Containers.h>

#include <cstddef>
#include <optional>
#include <string>

namespace MXF::Tessel::Tool {

/// How many declarations of a schema document are annotated in one flavour.
struct AnnotatedDeclarations {
  std::size_t elements = 0;  ///< With an element label, so that a dictionary is made of them.
  std::size_t groups = 0;    ///< With a group key, so that a scheme is made of them; abstract ones included.
};

/// What a schema document holds, whatever it was given as.
struct SchemaContents {
  Templates::WideString targetNamespace;
  AnnotatedDeclarations urn;
  AnnotatedDeclarations registry;
};

/// Looks into a document.
/// @return nothing when it cannot be read or is not well-formed.
std::optional<SchemaContents> schemaContents(const std::string& path);

}  // namespace MXF::Tessel::Tool
