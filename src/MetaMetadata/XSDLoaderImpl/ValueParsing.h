#pragma once

#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>
#include <Types/BaseType.h>
#include <Types/Identifiers.h>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The value that a text stands for, by data type; the caller owns it. Empty for a data type that has no text form. The
/// text counts up to its first null character.
/// @param subType  type of the items of an Array or Batch; of no effect on any other type.
/// @throws Exceptions::InvalidValue  a numeric text yields no number, or one out of the range of its extraction
///         ("Invalid ", the type's name, " value: " and the text), or the value class rejects the text.
/// @throws Exceptions::InvalidULDesignator  the text of a label is none.
/// @throws Exceptions::TypeNotSupportedException  a collection of collections.
Templates::auto_ptr<Types::BaseType> stringToValue(Types::Identifiers::Identifier dataType,
                                                   Types::Identifiers::Identifier subType, Templates::WideString text);

}  // namespace MXF::Tessel::MetaMetadata::Loading
