#pragma once

#include "loading/Failure.h"

#include <MetaMetadata/Dictionary.h>
#include <Templates/Containers.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// What a schema document declares, and so which operation of the loader reads it.
enum class FileKind { Multiplex, Dictionary, Scheme };

/// The word for a kind, as options and output have it: "multiplex", "dictionary" or "scheme".
const char* fileKindName(FileKind kind);

struct SchemaFile {
  FileKind kind;
  std::string path;  ///< Its bytes as given, whatever their encoding.
};

/// Which files to load, in which order, and how.
struct LoadRequest {
  std::optional<std::string> multiplex;  ///< Loaded before the schemas.
  std::vector<SchemaFile> schemas;       ///< Dictionaries and schemes, in the order to load them in.
  bool abstractGroups = false;
  bool documentation = false;
  bool lengthDescription = false;
  bool keepGoing = false;  ///< Load the files that follow one that failed.
};

/// One load that was tried.
struct LoadRecord {
  SchemaFile file;
  std::optional<Failure> failure;
};

/// What loading left behind. After a failure the dictionary holds what the loads before it, and the failed load itself,
/// put there.
struct LoadOutcome {
  Templates::WideString targetNamespace;  ///< Multiplex namespace of the annotation flavour in use.
  std::vector<LoadRecord> loads;          ///< In the order in which they were tried.
  MetaMetadata::Dictionary dictionary;
};

/// Loads the files of the request with one loader into one dictionary, the multiplex first.
/// @param onFailure  called for each load that fails, at once.
/// @return whether all files could be loaded.
bool loadSchemas(const LoadRequest& request, LoadOutcome& outcome,
                 const std::function<void(const LoadRecord&)>& onFailure);

}  // namespace MXF::Tessel::Tool
