#pragma once

#include "loading/SchemaLoading.h"

namespace MXF::Tessel::Tool {

/// Why a load added nothing to the dictionary.
struct NothingLoaded {
  std::string text;    ///< The rest of a sentence that begins with the file.
  std::string remedy;  ///< What to do: a sentence; empty when the text says it.
  bool isMistake;      ///< The file is not what it was given as; otherwise it may be meant so.
  bool isOfOtherFlavour = false;
};

/// Looks into the file for it.
/// @param flavour              multiplex namespace of the flavour in use.
/// @param triedAbstractGroups  the load with abstract groups failed.
NothingLoaded whyNothingLoaded(const SchemaFile& file, const Templates::WideString& flavour, bool triedAbstractGroups);

/// What to do about a file given as a multiplex schema that is none: a sentence. Empty when it cannot be looked into.
std::string remedyOfNoMultiplex(const SchemaFile& file);

}  // namespace MXF::Tessel::Tool
