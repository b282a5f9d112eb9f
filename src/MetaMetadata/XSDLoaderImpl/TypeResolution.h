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

/// The property declarations of single complex types, in the order of TypeProperties.
using OwnDeclarations = Readings<Elements>;

/// Walks from a type to the root of its base types, across imported documents.
/// @param document  where the type is declared.
/// @param typeName  as written, prefix included.
/// @param known     declarations of types met before; those of new ones are added.
/// @throws Exceptions::SchemeDataMissingException  "The " name " declaration was not found"; "Type " base ", base type
///         for " name ", was not found"; while abstract groups are loaded "Definition of type " base ", base type for "
///         name ", was not found"; "Type " name " is its own base type"; or a base group without key.
/// @throws Exceptions::InvalidULDesignator  a base group's key is malformed.
/// @throws Exceptions::IOError, xercesc::SAXParseException  an import cannot be loaded.
TypeProperties collectPropertyDeclarations(XSDLoaderImplData& data, xercesc::DOMDocument& document,
                                           const Templates::WideString& typeName, OwnDeclarations& known);

}  // namespace MXF::Tessel::MetaMetadata::Loading
