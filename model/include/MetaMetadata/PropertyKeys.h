#pragma once

/// Keys of the text properties that loaders write. SMPTE ST 434 is the standard behind the annotations they come from.
namespace MXF::Tessel::MetaMetadata::PropertyKeys {

// On elements and sets.
inline constexpr const wchar_t* name = L"name";                          ///< Registry name; never empty.
inline constexpr const wchar_t* documentation = L"Documentation";        ///< First documentation text, if asked for.
inline constexpr const wchar_t* xmlTagName = L"XMLTagName";              ///< Local name in XML documents.
inline constexpr const wchar_t* xmlNamespaceURI = L"XMLNamespaceURI";    ///< Target namespace of the declaring schema.
inline constexpr const wchar_t* xmlDefaultPrefix = L"XMLDefaultPrefix";  ///< Prefix to write that namespace with.

// On elements only.
inline constexpr const wchar_t* lengthDescription = L"LengthDescription";  ///< Length annotation, if asked for.
inline constexpr const wchar_t* xmlChildTagName = L"XMLChildTagName";      ///< Local name of a collection's items.
/// Sets that a reference may point at and that no scheme document has declared yet: "[name,namespace URI];" per set.
inline constexpr const wchar_t* unresolvedSetReferences = L"UnresolvedMetaMetadataSetsRefs";

// On sets only.
inline constexpr const wchar_t* isAbstract = L"abstract";         ///< "true" or "false".
inline constexpr const wchar_t* baseGroupLabel = L"baseGroupUL";  ///< Key of the base group in text form, or empty.

// On attributes, together with xmlNamespaceURI.
inline constexpr const wchar_t* schemaIndex = L"SchemaIndex";  ///< Position in the set, decimal, from 0.
inline constexpr const wchar_t* localTag = L"LocalTag";        ///< Text form of the local tag, if it has one.
inline constexpr const wchar_t* requiresSemanticsValidation = L"RequiresSemanticsValidation";  ///< As annotated.
inline constexpr const wchar_t* requiredStatus = L"MetadataElementRequiredStatus";             ///< Status word.
inline constexpr const wchar_t* universalLabel = L"UniversalLabel";  ///< Text form of the element's label.

}  // namespace MXF::Tessel::MetaMetadata::PropertyKeys
