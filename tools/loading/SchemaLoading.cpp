#include "loading/SchemaLoading.h"

#include "loading/FailureExplanation.h"
#include "loading/MissingElement.h"
#include "loading/NothingLoaded.h"

#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace MXF::Tessel::Tool {

using MetaMetadata::Loading::XSDDictionaryLoader2;

namespace {

std::vector<SchemaFile> filesInLoadOrder(const LoadRequest& request) {
  std::vector<SchemaFile> files;
  if (request.multiplex) files.push_back({FileKind::Multiplex, *request.multiplex});
  files.insert(files.end(), request.schemas.begin(), request.schemas.end());
  return files;
}

void loadFile(XSDDictionaryLoader2& loader, const SchemaFile& file, MetaMetadata::Dictionary& dictionary) {
  const Templates::WideString path = Utils::stringToWstring(file.path.c_str());
  switch (file.kind) {
    case FileKind::Multiplex:
      return loader.loadMultiplex(path);
    case FileKind::Dictionary:
      return loader.loadDictionary(path, dictionary);
    case FileKind::Scheme:
      return loader.loadScheme(path, dictionary);
  }
}

/// How many elements or sets, whichever the kind of file declares.
std::size_t countDeclared(FileKind kind, const MetaMetadata::Dictionary& dictionary) {
  const auto count = kind == FileKind::Dictionary
                         ? std::distance(dictionary.metaElementBegin(), dictionary.metaElementEnd())
                         : std::distance(dictionary.metaMetadataSetBegin(), dictionary.metaMetadataSetEnd());
  return static_cast<std::size_t>(count);
}

/// @return why the file failed to load with abstract groups, when it was loaded without them after that.
std::optional<Failure> tryToLoad(XSDDictionaryLoader2& loader, LoadRecord& record, const LoadRequest& request,
                                 MetaMetadata::Dictionary& dictionary) {
  const bool mayDoWithout = request.abstractGroupsIfPossible && !request.abstractGroups;
  loader.loadAbstractGroups(request.abstractGroups || request.abstractGroupsIfPossible);
  const std::size_t before = countDeclared(record.file.kind, dictionary);
  record.failure = failureOf([&] { loadFile(loader, record.file, dictionary); });
  if (!record.failure || !mayDoWithout || record.file.kind != FileKind::Scheme) return std::nullopt;
  // What got into the dictionary would be in the way of itself.
  if (countDeclared(record.file.kind, dictionary) != before) return std::nullopt;
  loader.loadAbstractGroups(false);
  std::optional<Failure> failure = failureOf([&] { loadFile(loader, record.file, dictionary); });
  std::swap(record.failure, failure);
  return record.failure ? std::nullopt : failure;
}

void passOver(LoadRecord& record) {
  record.failure.reset();
  record.isPassedOver = true;
  record.warning =
      "is not of the URN flavour, or needs a file that is not: none such is loaded, since the multiplex schema, which "
      "tells the flavour, failed to load";
}

void explainNothing(LoadRecord& record, const LoadRequest& request, const LoadOutcome& outcome) {
  NothingLoaded nothing = whyNothingLoaded(record.file, outcome.targetNamespace, request.abstractGroupsIfPossible);
  if (nothing.isOfOtherFlavour && !isFlavourKnown(outcome)) return passOver(record);
  if (!nothing.isMistake) {
    record.warning = nothing.text;
    return;
  }
  record.failure = Failure{wrongFileClass, std::nullopt, Utils::stringToWstring(nothing.text.c_str()), {}};
  record.explanation.remedy = nothing.remedy;
}

/// The load before that met the same fault of the same document, such as one that both import.
std::optional<std::size_t> sameFailureBefore(const Failure& failure, const std::vector<LoadRecord>& loads) {
  if (!failure.place.isKnown()) return std::nullopt;
  for (std::size_t i = 0; i < loads.size(); ++i) {
    const std::optional<Failure>& before = loads[i].failure;
    if (before && before->place.toString() == failure.place.toString() && before->message == failure.message) {
      return loads[i].sameAs.value_or(i);
    }
  }
  return std::nullopt;
}

LoadRecord loadRecorded(XSDDictionaryLoader2& loader, const SchemaFile& file, const LoadRequest& request,
                        LoadOutcome& outcome) {
  const std::size_t before = countDeclared(file.kind, outcome.dictionary);
  LoadRecord record;
  record.file = file;
  const std::optional<Failure> withAbstractGroups = tryToLoad(loader, record, request, outcome.dictionary);
  outcome.targetNamespace = loader.getTargetNamespace();
  if (withAbstractGroups) {
    const Templates::WideString path = Utils::stringToWstring(file.path.c_str());
    record.leftOut = findLeftOutGroups(path, *withAbstractGroups, outcome.targetNamespace);
  }
  if (record.failure && isForWantOfPassedOver(*record.failure, outcome)) passOver(record);
  if (record.failure) {
    findPlace(file, *record.failure);
    record.explanation = explainFailure(record, outcome, request.abstractGroups);
    record.sameAs = sameFailureBefore(*record.failure, outcome.loads);
  } else if (!record.isPassedOver && file.kind != FileKind::Multiplex &&
             countDeclared(file.kind, outcome.dictionary) == before) {
    explainNothing(record, request, outcome);
  }
  return record;
}

}  // namespace

const char* fileKindName(FileKind kind) {
  switch (kind) {
    case FileKind::Multiplex:
      return "multiplex";
    case FileKind::Dictionary:
      return "dictionary";
    case FileKind::Scheme:
      break;
  }
  return "scheme";
}

bool isFlavourKnown(const LoadOutcome& outcome) {
  return std::none_of(outcome.loads.begin(), outcome.loads.end(),
                      [](const LoadRecord& load) { return load.file.kind == FileKind::Multiplex && load.failure; });
}

bool loadSchemas(const LoadRequest& request, LoadOutcome& outcome,
                 const std::function<void(const LoadRecord&)>& onTrouble) {
  XSDDictionaryLoader2 loader;
  loader.loadMetaElementDocumentation(request.documentation);
  loader.loadMetaElementLengthDescription(request.lengthDescription);

  bool isComplete = true;
  for (const SchemaFile& file : filesInLoadOrder(request)) {
    outcome.loads.push_back(loadRecorded(loader, file, request, outcome));
    const LoadRecord& record = outcome.loads.back();
    if (record.failure || record.warning || record.leftOut) onTrouble(record);
    if (record.failure) isComplete = false;
    if (record.failure && !request.keepGoing) break;
  }
  return isComplete;
}

}  // namespace MXF::Tessel::Tool
