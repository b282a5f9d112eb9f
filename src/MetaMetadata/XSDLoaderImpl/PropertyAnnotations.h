#pragma once

#include "Readings.h"
#include "XSDLoaderImplData.h"

#include <Templates/Containers.h>

#include <xercesc/dom/DOMElement.hpp>

#include <optional>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The registry annotations of a property declaration, as written.
struct PropertyAnnotations {
  std::optional<Templates::WideString> requiredStatus;
  Templates::WideString distinguishedValue;  ///< Empty when there is none.
  std::optional<Templates::WideString> localTag;
  Templates::WideString semanticsValidation;  ///< Empty when there is none.
};
using KnownAnnotations = Readings<PropertyAnnotations>;

/// Reads all four; whoever makes values of them judges their faults, in an order of its own. Exceptions of the XML
/// libraries pass through.
PropertyAnnotations readPropertyAnnotations(const XSDLoaderImplData& data, xercesc::DOMElement& declaration);

}  // namespace MXF::Tessel::MetaMetadata::Loading
