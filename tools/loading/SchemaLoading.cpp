#include "loading/SchemaLoading.h"

#include <MetaMetadata/Loading/XSDDictionaryLoader2.h>
#include <Utils/TextConversion.h>

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

bool loadSchemas(const LoadRequest& request, LoadOutcome& outcome,
                 const std::function<void(const LoadRecord&)>& onFailure) {
  XSDDictionaryLoader2 loader;
  loader.loadAbstractGroups(request.abstractGroups);
  loader.loadMetaElementDocumentation(request.documentation);
  loader.loadMetaElementLengthDescription(request.lengthDescription);

  bool complete = true;
  for (const SchemaFile& file : filesInLoadOrder(request)) {
    LoadRecord record{file, failureOf([&] { loadFile(loader, file, outcome.dictionary); })};
    outcome.loads.push_back(record);
    if (!record.failure) continue;
    complete = false;
    onFailure(record);
    if (!request.keepGoing) break;
  }
  outcome.targetNamespace = loader.getTargetNamespace();
  return complete;
}

}  // namespace MXF::Tessel::Tool
