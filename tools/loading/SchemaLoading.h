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
  /// Load abstract groups of each scheme that can be loaded with them: in some schemas they have no key.
  bool abstractGroupsIfPossible = false;
  bool documentation = false;
  bool lengthDescription = false;
  bool keepGoing = false;  ///< Load the files that follow one that failed.
};

/// What a user may do about a load, as the rest of a sentence that begins with the file: UTF-8.
struct Advice {
  std::string text;
  bool isMistake;  ///< The file is not what it was given as; otherwise it may be meant so.
};

/// One load that was tried.
struct LoadRecord {
  SchemaFile file;
  std::optional<Failure> failure;
  /// On a failure that has a likely reason, and on a load that added nothing to the dictionary.
  std::optional<Advice> advice;
};

/// What loading left behind. After a failure the dictionary holds what the loads before it, and the failed load itself,
/// put there.
struct LoadOutcome {
  Templates::WideString targetNamespace;  ///< Multiplex namespace of the annotation flavour in use.
  std::vector<LoadRecord> loads;          ///< In the order in which they were tried.
  MetaMetadata::Dictionary dictionary;
};

enum class LoadResult {
  Complete,
  /// All files were loaded, but one is of another kind or flavour than it was given as, or the dictionary is empty.
  Mistaken,
  Failed  ///< A file could not be loaded.
};

/// Loads the files of the request with one loader into one dictionary, the multiplex first.
/// @param onTrouble  called for each load that fails or that there is advice on, at once.
LoadResult loadSchemas(const LoadRequest& request, LoadOutcome& outcome,
                       const std::function<void(const LoadRecord&)>& onTrouble);

/// The advice of a load as a line: "PATH: note: ..." on a failure, else "PATH: warning: ...".
std::string adviceLine(const LoadRecord& record);

}  // namespace MXF::Tessel::Tool
