#pragma once

#include "XSDLoaderImplData.h"

#include <MetaMetadata/PropertyMap.h>

#include <xercesc/dom/DOMElement.hpp>

/// The properties that elements and sets have alike: what their declaration says about them as XML.
namespace MXF::Tessel::MetaMetadata::Loading {

/// Adds "name", the declaration's registry name.
/// @param nameQuery  the annotation query for it.
/// @throws Exceptions::InvalidMetaElementDeclaration  it is absent or empty: "The property 'name' is required.".
void addRegistryName(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, const wchar_t* nameQuery,
                     PropertyMap& properties);

/// Adds "Documentation", the first text of the declaration's documentation, if the option is on and it is not empty.
void addDocumentation(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, PropertyMap& properties);

/// Adds "XMLTagName" (unless the declaration has no name), "XMLNamespaceURI" and "XMLDefaultPrefix".
/// @throws Exceptions::SchemeDataMissingException  the document has no target namespace.
/// @throws Exceptions::InvalidMetaElementDeclaration  no loaded document binds a prefix to it: "No default prefix
///         defined for namespace: " and the namespace.
void addXmlName(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, PropertyMap& properties);

/// Adds the property with the text of the query's first match, if that is not empty. @return whether it was added.
bool addTextUnlessEmpty(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, const XMLCh* query,
                        const wchar_t* key, PropertyMap& properties);
bool addTextUnlessEmpty(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, const wchar_t* query,
                        const wchar_t* key, PropertyMap& properties);

}  // namespace MXF::Tessel::MetaMetadata::Loading
