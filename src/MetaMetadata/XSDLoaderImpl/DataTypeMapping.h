#pragma once

#include <Templates/Containers.h>
#include <Types/Identifiers.h>

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// What an element declaration says of its type.
struct DeclaredType {
  Types::Identifiers::Identifier dataType = Types::Identifiers::Identifier::Unknown;
  /// Type of a collection's items, or the kind of a collection's references; Unknown for all else, and for a collection
  /// whose item type is not known.
  Types::Identifiers::Identifier subType = Types::Identifiers::Identifier::Unknown;
};

/// The data type that a declaration names: in its "type" attribute, or as the "base" of a type declared inside it.
/// @throws Exceptions::TypeNotSupportedException  there is none: "MetaElement type not supported, unknown data type: "
///         and the declaration's name.
DeclaredType resolveDataType(xercesc::DOMElement& declaration, const xercesc::DOMXPathNSResolver* resolver);

/// Local part of the "base" attribute three levels below the declaration, or else two; empty when there is none.
Templates::WideString baseTypeName(xercesc::DOMElement& declaration);

/// Type of the items that a collection's complex content declares; Unknown when it names none.
Types::Identifiers::Identifier collectionSubType(xercesc::DOMElement& declaration,
                                                 const xercesc::DOMXPathNSResolver* resolver);

/// Sets the type that a reference kind stands for (SMPTE ST 434: StrongRefArray and the like); any other name leaves
/// it.
void referenceKind(const Templates::WideString& name, DeclaredType& type);

}  // namespace MXF::Tessel::MetaMetadata::Loading
