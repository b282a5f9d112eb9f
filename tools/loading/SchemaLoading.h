#pragma once

#include "loading/Explanation.h"
#include "loading/Failure.h"
#include "loading/LeftOutGroups.h"

#include <MetaMetadata/Dictionary.h>
#include <Templates/Containers.h>

#include <cstddef>
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

/// One load that was tried.
struct LoadRecord {
  SchemaFile file;
  /// A file of another kind or flavour than it was given as fails, too: with wrongFileClass.
  std::optional<Failure> failure;
  Explanation explanation;             ///< Of the failure.
  std::optional<std::size_t> sameAs;   ///< Number of the load that met the same fault of the same document before.
  std::optional<std::string> warning;  ///< Why a load that may be meant so added nothing; the rest of a sentence.
  /// The warning is that the flavour is not known and the file, or what it needs, is of another than the URN flavour.
  bool isPassedOver = false;
  std::optional<LeftOutGroups> leftOut;  ///< When it failed to load with abstract groups, and not without them.
};

/// What loading left behind. After a failure the dictionary holds what the loads before it, and the failed load itself,
/// put there.
struct LoadOutcome {
  Templates::WideString targetNamespace;  ///< Multiplex namespace of the annotation flavour in use.
  std::vector<LoadRecord> loads;          ///< In the order in which they were tried.
  MetaMetadata::Dictionary dictionary;
};

/// Whether no multiplex schema, which tells the flavour, has failed to load.
bool isFlavourKnown(const LoadOutcome& outcome);

/// Loads the files of the request with one loader into one dictionary, the multiplex first.
/// @param onTrouble  called for each load that fails, that there is a warning of, or that leaves out abstract
///                  groups, at once.
/// @return whether all files were loaded.
bool loadSchemas(const LoadRequest& request, LoadOutcome& outcome,
                 const std::function<void(const LoadRecord&)>& onTrouble);

}  // namespace MXF::Tessel::Tool
