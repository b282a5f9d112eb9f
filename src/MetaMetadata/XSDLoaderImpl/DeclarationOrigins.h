#pragma once

#include "XSDLoaderImplData.h"

#include <Exceptions/BaseException.h>
#include <Utils/SourceLocation.h>

#include <xercesc/dom/DOMElement.hpp>

/// Where declarations are, for what is loaded from them and for what is wrong with them.
namespace MXF::Tessel::MetaMetadata::Loading {

/// Where the declaration begins, in whichever document holds it.
Utils::SourceLocation originOf(const XSDLoaderImplData& data, const xercesc::DOMElement& declaration);

/// Does what a pass does for a declaration, or for an object that was made of it. An exception of ours that passes gets
/// the place, unless it has that of a declaration within.
template <class Place, class Work>
auto workingAt(const Place& placeOf, const Work& work) {
  try {
    return work();
  } catch (Exceptions::BaseException& fault) {
    if (!fault.location().isKnown()) fault.setDeclaration(placeOf());
    throw;
  }
}

template <class Work>
auto workingOn(const XSDLoaderImplData& data, const xercesc::DOMElement& declaration, const Work& work) {
  return workingAt([&] { return originOf(data, declaration); }, work);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
