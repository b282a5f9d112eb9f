#pragma once

/// The parts of the loader that exceptions name as their source. A name stands for all files of the part, so that it stays
/// the same while code moves between them; the line is that of the throw site in its own file.
namespace MXF::Tessel::MetaMetadata::Loading::SourceNames {

inline constexpr const char* facade = "XSDDictionaryLoader2";
inline constexpr const char* loaderImpl = "XSDLoaderImpl";
inline constexpr const char* utils = "Utils";

}  // namespace MXF::Tessel::MetaMetadata::Loading::SourceNames
