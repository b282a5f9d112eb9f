#pragma once

#include "analysis/DictionaryIndex.h"
#include "report/TemplateData.h"

/// Places in the page. An anchor is made of a label or key alone, so that links from elsewhere keep working when a new
/// version of the schemas is reported.
namespace MXF::Tessel::Tool {

/// Such as "element-06.0E.2B.34.01.01.01.02.06.01.01.04.02.01.00.00".
std::u32string anchorOf(const MetaMetadata::MetaElement& element);
/// Such as "set-06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.18.00".
std::u32string anchorOf(const MetaMetadata::MetaMetadataSet& set);

/// What the template of a link is filled with.
TemplateData linkTo(const MetaMetadata::MetaElement& element);
TemplateData linkTo(const MetaMetadata::MetaMetadataSet& set);

/// Links to each of the sets, or false when there are none.
TemplateData linksTo(const DictionaryIndex::Sets& sets);

/// "PATH:LINE:COLUMN" of the declaration, or false when it is not known.
TemplateData originOf(const MetaMetadata::PropertyMap& declared);

}  // namespace MXF::Tessel::Tool
