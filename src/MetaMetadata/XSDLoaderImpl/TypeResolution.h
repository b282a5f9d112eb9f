#pragma once

#include "Readings.h"
#include "XPathEvaluation.h"
#include "XSDLoaderImplData.h"

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// What a group's type gives its set.
struct TypeProperties {
  /// The property declarations of the whole chain of base types, those of the root first; of each type, those in
  /// element form before those in attribute form.
  Elements declarations;
  /// Text form of the key of the group that is declared with the immediate base type; empty when there is none.
  Templates::WideString baseGroupKey;
};

/// What was read of the types and base groups of a document's chains. Chains share most of their links.
struct KnownTypes {
  Readings<Templates::WideString> baseNames;  ///< Of complex types; without prefixes in the query, for any resolver.
  Readings<Elements> ownDeclarations;         ///< Of complex types, in the order of TypeProperties.
  Readings<Templates::WideString> baseGroupKeys;  ///< Of base groups: text form of the key, empty for one passed over.
};

/// Walks from a type to the root of its base types, across imported documents.
/// @param document  where the type is declared.
/// @param typeName  as written, prefix included.
/// @param known     of types met before; what is read of new ones is added.
/// @throws Exceptions::SchemeDataMissingException  "The " name " declaration was not found"; "Type " base ", base type
///         for " name ", was not found"; while abstract groups are loaded "Definition of type " base ", base type for "
///         name ", was not found"; "Type " name " is its own base type"; or a base group without key.
/// @throws Exceptions::InvalidULDesignator  a base group's key is malformed.
/// @throws Exceptions::IOError, xercesc::SAXParseException  an import cannot be loaded.
TypeProperties collectPropertyDeclarations(XSDLoaderImplData& data, xercesc::DOMDocument& document,
                                           const Templates::WideString& typeName, KnownTypes& known);

}  // namespace MXF::Tessel::MetaMetadata::Loading
