// The imports that a loader has loaded, by path and by namespace.

#include "ImportedDocuments.h"

#include "DocumentAccess.h"

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;

namespace {

const ImportedDocuments::Documents noDocuments;

}  // namespace

void ImportedDocuments::add(const WideString& path, const ImportedDocument& imported) {
  Documents& documents = byNamespace_[attributeOf(*imported.document->getDocumentElement(), u"targetNamespace")];
  if (documents.size() == documents.capacity()) documents.reserve(2 * documents.size() + 1);
  byPath_.emplace(path, imported);
  documents.push_back(imported.document);  // cannot fail: a document is known by path and by namespace, or not at all
}

const ImportedDocument* ImportedDocuments::find(const WideString& path) const {
  const auto entry = byPath_.find(path);
  return entry == byPath_.end() ? nullptr : &entry->second;
}

const ImportedDocuments::Documents& ImportedDocuments::ofNamespace(const WideString& namespaceUri) const {
  const auto nameless = byNamespace_.find(WideString());
  if (nameless != byNamespace_.end() && !nameless->second.empty())
    targetNamespaceOf(*nameless->second.front());  // fails
  const auto entry = byNamespace_.find(namespaceUri);
  return entry == byNamespace_.end() ? noDocuments : entry->second;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
