#pragma once

#include "XSDLoaderImplData.h"

#include <MetaMetadata/Dictionary.h>
#include <Templates/auto_ptr.h>
#include <Types/UID.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// Turns the element declarations of a document into elements and hands them to the dictionary in label order, none of
/// them before all have been read.
void runDictionaryPass(const XSDLoaderImplData& data, xercesc::DOMDocument& document, Dictionary& dictionary);

/// The label that a declaration is annotated with. The caller owns it.
/// @throws Exceptions::InvalidMetaElementDeclaration  it has none: "MetaElement without UniversalLabel.".
/// @throws Exceptions::InvalidULDesignator  the annotation is no label.
Templates::auto_ptr<Types::UniversalLabel> readElementLabel(const XSDLoaderImplData& data,
                                                            xercesc::DOMElement& declaration);

}  // namespace MXF::Tessel::MetaMetadata::Loading
