#pragma once

#include <MetaMetadata/MetaElement.h>
#include <Templates/Containers.h>
#include <Types/BaseType.h>

#include <string>

/// How distinguished values are written. The loader reads texts leniently: what it cannot make sense of it passes over,
/// cuts off or takes for zero.
namespace MXF::Tessel::Tool::ValueForms {

/// Whether a text, read strictly, is the value that was loaded from it.
/// @param element  of which the value is.
bool isWritten(const Templates::WideString& text, const MetaMetadata::MetaElement& element,
               const Types::BaseType& value);

/// How values of an element are written: a sentence. Empty when its type has no text form.
std::string formOf(const MetaMetadata::MetaElement& element);

}  // namespace MXF::Tessel::Tool::ValueForms
