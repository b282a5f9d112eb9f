#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>

#include <string>

namespace MXF::Tessel::MetaMetadata::Loading {

/// A document that was loaded because another one imports it. Document and resolver belong to the parser.
struct ImportedDocument {
  xercesc::DOMDocument* document;
  xercesc::DOMXPathNSResolver* nsResolver;
  const std::u16string* schemaNamespace;  ///< What the resolver has for the prefix xs, one of those that data keep.
};

/// The imported documents of a loader. Only ever grows.
class ImportedDocuments {
 public:
  using Documents = Templates::vector<xercesc::DOMDocument*>;

  /// @param path  as it was loaded.
  void add(const Templates::WideString& path, const ImportedDocument& imported);

  /// The document loaded from exactly this path, or null.
  const ImportedDocument* find(const Templates::WideString& path) const;

  /// The documents with this target namespace, in the order in which they were loaded.
  /// @throws Exceptions::SchemeDataMissingException  any of all the documents has no target namespace.
  const Documents& ofNamespace(const Templates::WideString& namespaceUri) const;

 private:
  Templates::map<Templates::WideString, ImportedDocument> byPath_;
  Templates::map<Templates::WideString, Documents> byNamespace_;  // those without are under the empty text
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
