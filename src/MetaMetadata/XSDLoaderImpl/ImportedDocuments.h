#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

/// A document that was loaded because another one imports it. Document and resolver belong to the parser.
struct ImportedDocument {
  Templates::WideString path;  ///< As it was loaded.
  xercesc::DOMDocument* document;
  xercesc::DOMXPathNSResolver* nsResolver;
};

/// The imported documents of a loader, in the order in which they were loaded. Only ever grows.
class ImportedDocuments {
 public:
  void add(const ImportedDocument& imported) { documents_.push_back(imported); }

  /// The document loaded from exactly this path, or null.
  const ImportedDocument* find(const Templates::WideString& path) const {
    for (const ImportedDocument& imported : documents_) {
      if (imported.path == path) return &imported;
    }
    return nullptr;
  }

  auto begin() const { return documents_.begin(); }
  auto end() const { return documents_.end(); }

 private:
  Templates::vector<ImportedDocument> documents_;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
