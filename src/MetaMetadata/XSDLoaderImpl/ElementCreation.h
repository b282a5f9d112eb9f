#pragma once

#include "DataTypeMapping.h"
#include "XSDLoaderImplData.h"

#include <MetaMetadata/MetaElement.h>
#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>
#include <Types/UID.h>

#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The element that a declaration describes, of the class that its type asks for, with all its properties. The caller
/// owns it.
/// @throws Exceptions::InvalidMetaElementDeclaration  a collection's item type is not known: "MetaElement Declaration
///         of type collection with unknown sub data type: " and the declaration's name; or see ElementProperties.h.
/// @throws Exceptions::TypeNotSupportedException  the model does not support the type.
Templates::auto_ptr<MetaElement> createMetaElement(const XSDLoaderImplData& data, xercesc::DOMElement& declaration,
                                                   const Types::UniversalLabel& label, const DeclaredType& type);

/// Whether the type is a reference to a set, or a collection of such.
bool isReferenceType(const DeclaredType& type);

/// The groups that a reference declaration names as its targets, as pending references (PendingSetReferences.h) in
/// document order.
Templates::WideString referencedSetList(const XSDLoaderImplData& data, xercesc::DOMElement& declaration);

}  // namespace MXF::Tessel::MetaMetadata::Loading
