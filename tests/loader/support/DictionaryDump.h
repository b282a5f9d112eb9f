#pragma once

#include <MetaMetadata/Dictionary.h>
#include <Types/BaseType.h>

#include <string>

namespace MXF::Tessel::Test {

enum class Properties { Shown, LeftOut };

/// What a dictionary holds, in its own orders, a line each:
///
///     L01 MetaSimpleElement 6 name=A name; XMLDefaultPrefix=t; ...
///     L02 MetaReferenceCollection 1 29 [K01 K02] name=...
///     K01 name=...                             a set, its attributes indented below it
///       L01 Opt 3C.0A Int32 5 SchemaIndex=0; ...        with the local tag and distinguished value, if any
///     3C.0A L01                                a local tag
///
/// Labels and keys of SchemaBuilder.h are written in short, others in full. Properties are in key order.
std::string dump(const MetaMetadata::Dictionary& dictionary, Properties properties = Properties::Shown);

/// A value's class and content: "Int32 5", "UTF16String text", "Rational 1/2", "RGBALayout 82:8 0:0 ...",
/// "Array of 4 bytes {Int32 1, Int32 2}".
std::string dump(const Types::BaseType& value);

}  // namespace MXF::Tessel::Test
