#include "analysis/AttributeSources.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaMetadataSet;

AttributeSource AttributeSources::of(const MetaMetadataSet& set, std::size_t attribute) {
  const MetaMetadataSet& declaring = index_.declaringSet(set, attribute);
  if (index_.baseOf(declaring) != nullptr) return {&declaring, std::nullopt};
  return {&declaring, types_.extendedType(declaring, *declaring.metaAttributes()[attribute])};
}

std::vector<AttributeSource> AttributeSources::of(const MetaMetadataSet& set) {
  std::vector<AttributeSource> sources;
  for (std::size_t i = 0; i < set.metaAttributes().size(); ++i) sources.push_back(of(set, i));
  return sources;
}

std::vector<ExtendedType> AttributeSources::missingTypes(const MetaMetadataSet& set) {
  std::vector<ExtendedType> types;
  for (const AttributeSource& source : of(set)) {
    if (source.missingType && (types.empty() || !(types.back() == *source.missingType))) {
      types.push_back(*source.missingType);
    }
  }
  std::reverse(types.begin(), types.end());
  return types;
}

}  // namespace MXF::Tessel::Tool
