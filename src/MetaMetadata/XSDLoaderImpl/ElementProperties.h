#pragma once

#include "XSDLoaderImplData.h"

#include <MetaMetadata/MetaElement.h>

#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// Adds "name", "Documentation", "LengthDescription", "XMLTagName", "XMLNamespaceURI" and "XMLDefaultPrefix", as far as
/// the declaration and the options give them.
/// @throws Exceptions::InvalidMetaElementDeclaration, Exceptions::SchemeDataMissingException  see XmlProperties.h.
void setElementProperties(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, MetaElement& element);

/// Adds "XMLChildTagName", the name of the items, to a MetaCollection; leaves every other element alone.
/// @throws Exceptions::InvalidMetaElementDeclaration  the items have no name: "Empty name attribute".
void setChildTagName(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, MetaElement& element);

}  // namespace MXF::Tessel::MetaMetadata::Loading
