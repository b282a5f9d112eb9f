#pragma once

#include "analysis/AttributeSources.h"
#include "analysis/DictionaryIndex.h"
#include "report/TemplateData.h"

namespace MXF::Tessel::Tool {

/// What the template of a set is filled with.
TemplateData setData(const DictionaryIndex& index, AttributeSources& sources, const MetaMetadata::MetaMetadataSet& set);

}  // namespace MXF::Tessel::Tool
