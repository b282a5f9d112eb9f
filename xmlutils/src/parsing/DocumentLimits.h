#pragma once

#include <Utils/Limit.h>

#include <cstddef>

/// What a document may hold. Every limit is far above what schemas have, and low enough that no document keeps the
/// parser busy, or fills the memory, out of proportion to its size.
namespace MXF::Tessel::XMLUtils {

using Utils::Limit;

namespace Limits {

/// The largest registry of the standard has 3 MB.
constexpr Limit fileSize{std::size_t{64} << 20U, L"bytes in a file"};

/// That registry has 120,000. Each takes two to three hundred bytes, and so up to eighty for each byte of a file.
constexpr Limit nodes{4'000'000, L"elements, attributes, texts and other nodes"};

/// Schemas nest about a dozen levels. For every level the parser looks through those above when it resolves a prefix,
/// and code that walks a tree may do so by recursion.
constexpr Limit nesting{256, L"levels of nested elements"};

/// A declaration has fewer than ten. Where the parser adds one to an element it moves those that sort after it.
constexpr Limit attributes{1'000, L"attributes of an element"};
/// Schemas have none. Each is put behind those that look like it.
constexpr Limit identifiers{10'000, L"attributes of type ID"};

/// Schemas bind a few dozen prefixes, all in the root element. Each is compared with those before it.
constexpr Limit prefixesOfElement{1'000, L"namespace declarations of an element"};
constexpr Limit prefixes{100'000, L"namespace declarations"};
/// A prefix is compared with all that are declared around it.
constexpr Limit prefixComparisons{1'000'000'000, L"comparisons with declared prefixes"};

/// Namespaces have less than a hundred characters. The parser goes through those of the namespace for every element and
/// every attribute with a prefix, and may go through those of all namespaces for every one that is declared.
constexpr Limit namespaceLength{4'096, L"characters in a namespace name"};
constexpr Limit namespaceCharacters{1'000'000'000, L"characters of namespace names that are compared"};
/// For documents that lead to each other. The parser keeps the namespaces of all that it has read.
constexpr Limit namespaceCharactersTogether{10'000'000'000, L"characters of namespace names that are compared"};

/// A schema uses some thirty names of elements and attributes. The parser looks each name up in tables whose lists grow
/// with their number, and can be made to keep all of them in one list.
constexpr Limit names{2'000, L"different names of elements and attributes"};

/// Schemas use few entities or none. What entities can add to a document is at most the product of the two.
constexpr Limit entityExpansions{10'000, L"expansions of entities"};
constexpr Limit entityLength{4'096, L"characters in an entity"};

/// What the two allow for one document. Others that it leads to have no more than that between them.
constexpr Limit expandedText{50'000'000, L"characters that entities add"};

/// The parser does not count expansions of parameter entities, and those of nested ones can double with each.
constexpr Limit parameterEntityNesting{0, L"references in a parameter entity"};
/// Nor does it tell of them; some more have been read where this is told.
constexpr Limit parameterEntityExpansions{11'000, L"references to parameter entities"};

/// The schema for schemas has fewer than a hundred. Lists of attributes count like each of their attributes.
constexpr Limit doctypeDeclarations{1'000, L"declarations in a document type"};
/// Its own text, and that of parameter entities. Names in declared content are looked up like all others.
constexpr Limit doctypeSize{std::size_t{1} << 20U, L"bytes in a document type"};
constexpr Limit doctypeText{1'000'000, L"characters between the declarations of a document type"};

/// The parser goes through all attributes that are declared for an element wherever it meets one, and makes those with a
/// default value anew for every element that leaves them out and after every list that declares more of them.
constexpr Limit declaredAttributes{100'000'000, L"comparisons with declared attributes"};
constexpr Limit defaultAttributes{100'000, L"attributes with default values"};
constexpr Limit defaultValues{1'000'000, L"characters in default values of attributes"};

}  // namespace Limits
}  // namespace MXF::Tessel::XMLUtils
