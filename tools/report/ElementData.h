#pragma once

#include "analysis/DictionaryIndex.h"
#include "report/TemplateData.h"

namespace MXF::Tessel::Tool {

/// What the template of an element is filled with.
TemplateData elementData(const DictionaryIndex& index, const MetaMetadata::MetaElement& element);

/// What the template of a data type is filled with: its name, and the sets that an element of it may refer to.
TemplateData typeData(const DictionaryIndex& index, const MetaMetadata::MetaElement& element);

/// How an element holds what it holds: "Value", "List of values", "Reference" or "List of references".
std::u32string elementKind(const MetaMetadata::MetaElement& element);

}  // namespace MXF::Tessel::Tool
