#pragma once

#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>

#include <loader/support/SchemaBuilder.h>
#include <string>
#include <string_view>

/// What the targets that load schemas share.
namespace MXF::Tessel::Fuzz {

using MetaMetadata::Dictionary;
using MetaMetadata::Loading::XSDDictionaryLoader2;
using Test::SchemaFlavour;

/// The flavour in which an input writes its annotations: registry if any of them is written so.
SchemaFlavour flavourOf(std::string_view input);
/// A loader of the flavour that has loaded nothing yet, to be assigned to the loader of an input.
const XSDDictionaryLoader2& freshLoader(SchemaFlavour flavour);

/// Sets and local tags in the form of Test::dump().
std::string setsOf(const Dictionary& dictionary);

/// Whether an input is among those that are to check more than the rest: some of all lengths, always the same ones.
inline bool nowAndThen(std::string_view input) {
  return input.size() % 8 == 0;
}

/// Checks that the loader, whatever it has loaded, reads a sound dictionary and a sound scheme rightly.
void requireUsable(XSDDictionaryLoader2& loader, SchemaFlavour flavour);

}  // namespace MXF::Tessel::Fuzz
