#pragma once

#include "analysis/DictionaryIndex.h"

#include <string>
#include <string_view>
#include <vector>

namespace MXF::Tessel::Tool {

/// How something differs from what was asked for.
enum class Nearness {
  Version,    ///< A label or key that differs in its eighth byte, the registry's version, only.
  Wildcard,   ///< The same once 7F hex, the byte that stands for any other, is taken for equal; version as above.
  Case,       ///< A name that differs in case, blanks, hyphens and underscores only.
  Bytes,      ///< A label or key with one or two other bytes, or one byte more or less.
  Pattern,    ///< A name, label or key that fits the pattern that was asked for, with asterisks for any text.
  Spelling,   ///< A name that needs few corrections.
  BytesPart,  ///< A label or key that holds the bytes that were asked for.
  Part        ///< A name that holds what was asked for.
};

/// An element or a set.
struct Entry {
  const DictionaryIndex::Element* element = nullptr;
  const DictionaryIndex::Set* set = nullptr;
};

struct NearMiss {
  Entry entry;
  Nearness nearness;
};

struct LookupResult {
  std::vector<Entry> matches;  ///< Elements before sets, each in the dictionary's order.
  /// The nearest first, at most mostNearMisses. None when there are matches; and where something differs only in
  /// version, wildcards or case, nothing else.
  std::vector<NearMiss> nearMisses;
  std::size_t furtherNearMisses = 0;  ///< How many more come as near, beyond that number.
  /// How many bytes were asked for, when they look like a label or key and are not as many; else 0.
  std::size_t wrongNumberOfBytes = 0;
};

inline constexpr std::size_t mostNearMisses = 12;

/// A name as people remember it: in small letters, without blanks, hyphens and underscores.
std::u32string nameLetters(std::u32string_view name);

/// What may be found.
enum class Sought { ElementsAndSets, Sets };

/// Finds what a text stands for: a label or key (16 bytes in hexadecimal digits with any of ".", ":", "-" and blanks
/// between them and braces around them, or as urn:smpte:ul), or one with its halves exchanged, as where it is written
/// as a UUID; a local tag (two bytes in the same ways); a registry name; or an XML name, with or without prefix. A tag
/// stands for the elements that have it.
LookupResult lookUp(const DictionaryIndex& index, const Templates::WideString& question,
                    Sought sought = Sought::ElementsAndSets);

}  // namespace MXF::Tessel::Tool
