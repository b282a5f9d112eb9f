#include "loading/SchemaLoading.h"

#include "loading/LoadAdvice.h"

#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Utils/TextConversion.h>

#include <algorithm>
#include <iterator>

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

std::optional<Failure> tryToLoad(XSDDictionaryLoader2& loader, const SchemaFile& file, const LoadRequest& request,
                                 MetaMetadata::Dictionary& dictionary) {
  const bool mayDoWithout = request.abstractGroupsIfPossible && !request.abstractGroups;
  loader.loadAbstractGroups(request.abstractGroups || request.abstractGroupsIfPossible);
  std::optional<Failure> failure = failureOf([&] { loadFile(loader, file, dictionary); });
  if (!failure || !mayDoWithout || file.kind != FileKind::Scheme) return failure;
  loader.loadAbstractGroups(false);
  return failureOf([&] { loadFile(loader, file, dictionary); });
}

LoadRecord loadRecorded(XSDDictionaryLoader2& loader, const SchemaFile& file, const LoadRequest& request,
                        LoadOutcome& outcome) {
  const std::size_t before = countDeclared(file.kind, outcome.dictionary);
  LoadRecord record{file, tryToLoad(loader, file, request, outcome.dictionary), std::nullopt};
  if (record.failure) {
    record.advice = adviceOnFailure(record, outcome);
  } else if (file.kind != FileKind::Multiplex && countDeclared(file.kind, outcome.dictionary) == before) {
    record.advice = adviceOnNothing(file, loader.getTargetNamespace(), request.abstractGroupsIfPossible);
  }
  return record;
}

LoadResult resultOf(const LoadOutcome& outcome) {
  const auto& loads = outcome.loads;
  const auto any = [&](auto&& holds) { return std::any_of(loads.begin(), loads.end(), holds); };
  if (any([](const LoadRecord& load) { return load.failure.has_value(); })) return LoadResult::Failed;
  if (any([](const LoadRecord& load) { return load.advice && load.advice->isMistake; })) return LoadResult::Mistaken;
  const bool isEmpty = outcome.dictionary.metaElementBegin() == outcome.dictionary.metaElementEnd();
  return isEmpty ? LoadResult::Mistaken : LoadResult::Complete;
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

LoadResult loadSchemas(const LoadRequest& request, LoadOutcome& outcome,
                       const std::function<void(const LoadRecord&)>& onTrouble) {
  XSDDictionaryLoader2 loader;
  loader.loadMetaElementDocumentation(request.documentation);
  loader.loadMetaElementLengthDescription(request.lengthDescription);

  for (const SchemaFile& file : filesInLoadOrder(request)) {
    outcome.loads.push_back(loadRecorded(loader, file, request, outcome));
    const LoadRecord& record = outcome.loads.back();
    if (record.failure || record.advice) onTrouble(record);
    if (record.failure && !request.keepGoing) break;
  }
  outcome.targetNamespace = loader.getTargetNamespace();
  return resultOf(outcome);
}

std::string adviceLine(const LoadRecord& record) {
  return record.file.path + (record.failure ? ": note: " : ": warning: ") + record.advice->text;
}

}  // namespace MXF::Tessel::Tool
