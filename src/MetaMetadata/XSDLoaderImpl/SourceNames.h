#pragma once

/// Names under which throw sites report their source, stable while code moves between files.
namespace MXF::Tessel::MetaMetadata::Loading::SourceNames {

inline constexpr const char* facade = "XSDDictionaryLoader2";
inline constexpr const char* loaderImpl = "XSDLoaderImpl";
inline constexpr const char* utils = "Utils";

}  // namespace MXF::Tessel::MetaMetadata::Loading::SourceNames
