#pragma once

#include "XSDLoaderImplData.h"

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

/// Finding the declaration of a complex type, across the documents that a schema imports.
namespace MXF::Tessel::MetaMetadata::Loading {

/// The top-level complex type of the document whose name is the local part of the given one, or null.
xercesc::DOMElement* findComplexType(XSDLoaderImplData& data, xercesc::DOMDocument& document,
                                     const Templates::WideString& typeName);

/// The document that declares the type, or null. Looked for in the document `from` in which the name is written, then
/// in the imports already loaded for the name's namespace, then in the imports of `from` for it, which are loaded one
/// by one in the order of their locations. Loading one makes its namespace bindings those of all later queries.
/// @throws Exceptions::IOError  an import names no file: the path, then " file Not Found!".
/// @throws Exceptions::SchemeDataMissingException  an import already loaded has no target namespace.
/// @throws xercesc::SAXParseException  an import is not well-formed.
xercesc::DOMDocument* findTypeDocument(XSDLoaderImplData& data, const Templates::WideString& typeName,
                                       xercesc::DOMDocument& from);

/// Where an import's location is looked for: in the directory of the document of the current load, absolute or not.
Templates::WideString importedSchemaPath(const XSDLoaderImplData& data, const Templates::WideString& location);

}  // namespace MXF::Tessel::MetaMetadata::Loading
