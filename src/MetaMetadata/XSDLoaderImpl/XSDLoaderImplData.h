#pragma once

#include "ImportedDocuments.h"
#include "LoadBudget.h"
#include "QuerySet.h"
#include "SchemaIndex.h"

#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>
#include <Utils/SourceLocation.h>
#include <XMLUtils/Released.h>

#include <xercesc/dom/DOMLSParser.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>

#include <cstddef>
#include <memory>
#include <set>
#include <string>

namespace MXF::Tessel::MetaMetadata::Loading {

/// A parser whose documents evaluate XPath 2. It owns every document it parses until it is released.
XMLUtils::Released<xercesc::DOMLSParser> createParser();

/// The state of a loader that both passes work on.
struct XSDLoaderImplData {
  XSDLoaderImplData();

  static void* operator new(std::size_t size);
  static void operator delete(void* block, std::size_t size) noexcept;

  bool withDocumentation = false;
  bool withLengthDescription = false;
  bool withAbstractGroups = false;
  /// Path of the document being loaded, with slashes only.
  Templates::WideString documentPath;
  /// Namespace URI to prefix, from the root elements of all documents loaded so far. The first prefix of a URI stays.
  Templates::map<Templates::WideString, Templates::WideString> prefixByNamespace;
  /// Path of each document as it was opened, shared by all that is loaded from it.
  Templates::map<const xercesc::DOMDocument*, Utils::SourceLocation::Path> pathByDocument;
  ImportedDocuments importedDocuments;
  SchemaIndexes schemaIndexes;
  /// Resolver of the most recently loaded document, whichever document a query runs on. Lives with its document.
  xercesc::DOMXPathNSResolver* nsResolver = nullptr;
  /// What that resolver has for the prefix xs, one of all that were met.
  const std::u16string* schemaNamespace = nullptr;
  std::set<std::u16string> schemaNamespaces;
  XMLUtils::Released<xercesc::DOMLSParser> parser;
  QuerySet queries;
  /// Of the current load. What a pass only reads of the state has its share in it all the same.
  Templates::auto_ptr<LoadBudget> budget = std::make_unique<LoadBudget>();
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
