#pragma once

#include "loading/SchemaDocument.h"

#include <MetaMetadata/MetaAttribute.h>
#include <MetaMetadata/MetaMetadataSet.h>
#include <Templates/Containers.h>

#include <map>
#include <optional>
#include <set>
#include <utility>

namespace MXF::Tessel::Tool {

/// A complex type from which a set has attributes.
struct ExtendedType {
  Templates::WideString name;
  bool hasGroup;  ///< Its schema declares a group of it; otherwise no set can be loaded of it.

  bool operator==(const ExtendedType& other) const { return name == other.name && hasGroup == other.hasGroup; }
};

/// Which complex types of the schemas declare the attributes of sets. A set holds those that its type inherits, too, and
/// when the sets of its bases are not loaded nothing but the schema tells them from its own. Each schema is read when it
/// is first needed, and once.
class DeclaringTypes {
 public:
  /// The complex type that declares an attribute of the set, when that is not the set's own type but one that it
  /// extends; nothing when it is its own, or not known.
  std::optional<ExtendedType> extendedType(const MetaMetadata::MetaMetadataSet& set,
                                           const MetaMetadata::MetaAttribute& attribute);

 private:
  using Name = std::pair<Templates::WideString, Templates::WideString>;  // namespace and local name
  struct Schema {
    std::map<DeclarationPosition, Name> ofGroups;      ///< The types that elements at the top name.
    std::set<Name> withGroups;                         ///< The same types.
    std::map<DeclarationPosition, Name> ofProperties;  ///< The named types that declarations stand in.
  };

  const Schema& schemaAt(const Templates::WideString& path);

  std::map<Templates::WideString, Schema> schemas_;
};

}  // namespace MXF::Tessel::Tool
