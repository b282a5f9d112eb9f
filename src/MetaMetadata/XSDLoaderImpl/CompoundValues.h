#pragma once

#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>
#include <Types/BaseType.h>
#include <Types/Identifiers.h>

/// Values written as braced lists. Items are not trimmed, and there is no quoting. A text of another outer form has no
/// items. The caller owns the results.
namespace MXF::Tessel::MetaMetadata::Loading {

/// The items of "{item,item,...}". The empty item after a final comma is dropped; a list of fewer than four characters,
/// braces included, has no items.
Templates::vector<Templates::WideString> splitBracedList(const Templates::WideString& text);

/// The items of all groups of "{{item,...},{item,...},...}" as one list, groups being separated by exactly one
/// character. A text of fewer than 49 characters (eight groups of two one-digit items) has no items.
Templates::vector<Templates::WideString> splitBracedGroups(const Templates::WideString& text);

/// @throws Exceptions::InvalidValue  an item cannot be read, or items of the sub type have no text form.
/// @throws Exceptions::TypeNotSupportedException  the sub type is a collection kind itself: "Not a simple data type: "
///         and its number.
Templates::auto_ptr<Types::BaseType> stringToArray(const Templates::WideString& text,
                                                   Types::Identifiers::Identifier subType);
/// @throws as stringToArray.
Templates::auto_ptr<Types::BaseType> stringToBatch(const Templates::WideString& text,
                                                   Types::Identifiers::Identifier subType);

/// Numerator and denominator are the first two items; further ones are ignored.
/// @throws Exceptions::InvalidValue  fewer than two items: "Invalid Rational value: " and the text; or an item is no
///         number.
Templates::auto_ptr<Types::BaseType> stringToRational(const Templates::WideString& text);

/// Pairs of component code and depth. A code that is no number from 0 to 65535 counts as 0; its low 8 bits are taken.
/// @throws Exceptions::InvalidValue  an odd number of items: "Invalid RGBALayout value: " and the text; a depth that is
///         no number; more than eight pairs.
Templates::auto_ptr<Types::BaseType> stringToRGBALayout(const Templates::WideString& text);

}  // namespace MXF::Tessel::MetaMetadata::Loading
