// Where a complex type is declared: here, in an import already loaded, or in one to be loaded. Entry points:
// findComplexType() for one document, findTypeDocument() for all of them.

#include "SchemaImports.h"

#include "DocumentAccess.h"
#include "Names.h"
#include "XPathEvaluation.h"

#include <Utils/TextConversion.h>

#include <cstddef>
#include <filesystem>
#include <system_error>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;
using xercesc::DOMDocument;
using xercesc::DOMElement;

namespace {

DOMDocument* findAmongLoadedImports(XSDLoaderImplData& data, const WideString& typeName,
                                    const WideString& namespaceUri) {
  for (DOMDocument* candidate : data.importedDocuments.ofNamespace(namespaceUri)) {
    data.budget->takeTypeLookups(1);
    if (findComplexType(data, *candidate, typeName) != nullptr) return candidate;
  }
  return nullptr;
}

/// 0 for a file that is not there: reading it tells.
std::size_t sizeOfFile(const WideString& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(Utils::wstringToString(path.c_str()).c_str(), error);
  return error ? 0 : size;
}

/// Loads the import, or takes up the one that was loaded from the same path: its bindings become those of all later
/// queries again, as loading would make them, and its prefixes are recorded since it was first loaded.
DOMDocument* loadImport(XSDLoaderImplData& data, const WideString& path) {
  if (const ImportedDocument* imported = data.importedDocuments.find(path)) {
    data.nsResolver = imported->nsResolver;
    data.schemaNamespace = imported->schemaNamespace;
    return imported->document;
  }
  data.budget->takeImport(sizeOfFile(path));
  DOMDocument* document = loadDocument(data, path, XMLUtils::Counting::Further);
  data.importedDocuments.add(path, {document, data.nsResolver, data.schemaNamespace});
  return document;
}

SchemaIndex::Locations queryImportLocations(const XSDLoaderImplData& data, DOMDocument& from,
                                            const WideString& namespaceUri) {
  const WideString query = L"/xs:schema/xs:import[@namespace=" + queryLiteral(namespaceUri) + L"]/@schemaLocation";
  const auto values = selectAttributeValues(from, query, data.nsResolver);
  return {values.begin(), values.end()};
}

DOMDocument* findAmongImportsOf(XSDLoaderImplData& data, DOMDocument& from, const WideString& typeName,
                                const WideString& namespaceUri) {
  const SchemaIndex* index = data.schemaIndexes.find(from, *data.nsResolver);
  SchemaIndex::Locations queried;
  if (index == nullptr) queried = queryImportLocations(data, from, namespaceUri);
  const SchemaIndex::Locations& locations = index != nullptr ? index->importLocations(namespaceUri) : queried;
  data.budget->takeTypeLookups(locations.size());
  for (const WideString& location : locations) {
    const WideString path = importedSchemaPath(data, location);
    data.budget->takeRepeatedText(path.size());
    DOMDocument* imported = loadImport(data, path);
    if (findComplexType(data, *imported, typeName) != nullptr) return imported;
  }
  return nullptr;
}

}  // namespace

DOMElement* findComplexType(XSDLoaderImplData& data, DOMDocument& document, const WideString& typeName) {
  data.budget->takeRepeatedText(typeName.size());
  const WideString name = qnameLocalPart(typeName);
  if (const SchemaIndex* index = data.schemaIndexes.find(document, *data.nsResolver)) {
    return index->complexTypeNamed(name);
  }
  const WideString query = L"/xs:schema/xs:complexType[@name=" + queryLiteral(name) + L"]";
  return dynamic_cast<DOMElement*>(firstNode(document, query, data.nsResolver));
}

DOMDocument* findTypeDocument(XSDLoaderImplData& data, const WideString& typeName, DOMDocument& from) {
  if (findComplexType(data, from, typeName) != nullptr) return &from;
  const WideString namespaceUri = namespaceForPrefix(from, qnamePrefix(typeName));
  data.budget->takeRepeatedText(namespaceUri.size());
  if (DOMDocument* loaded = findAmongLoadedImports(data, typeName, namespaceUri)) return loaded;
  return findAmongImportsOf(data, from, typeName, namespaceUri);
}

WideString importedSchemaPath(const XSDLoaderImplData& data, const WideString& location) {
  const std::size_t slash = data.documentPath.rfind(L'/');
  const WideString directory = slash == WideString::npos ? L"." : data.documentPath.substr(0, slash);
  return directory + L"/" + location;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
