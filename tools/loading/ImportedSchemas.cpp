// Follows the imports of a schema.

#include "loading/ImportedSchemas.h"

#include "loading/Failure.h"
#include "loading/SchemaDocument.h"

#include <XMLUtils/TextConversion.h>

#include <deque>
#include <set>

namespace MXF::Tessel::Tool {

using Templates::WideString;

namespace {

/// The paths of the schemas that a document imports, which the loaded one leads to.
std::deque<WideString> importsOf(const xercesc::DOMDocument& document, const WideString& loaded) {
  std::deque<WideString> paths;
  forEachChild(*document.getDocumentElement(), [&](const xercesc::DOMElement& import) {
    if (!isNamed(import, u"import") || !import.hasAttribute(u"schemaLocation")) return;
    paths.push_back(importedPath(loaded, XMLUtils::toWstring(import.getAttribute(u"schemaLocation"))));
  });
  return paths;
}

}  // namespace

WideString importedPath(const WideString& loaded, const WideString& location) {
  const std::size_t folder = loaded.rfind(L'/');
  return shownPath((folder == WideString::npos ? L"./" : loaded.substr(0, folder + 1)) + location);
}

void lookIntoWithImports(const WideString& path, const std::function<bool(const xercesc::DOMDocument&)>& action) {
  std::set<WideString> met;
  std::deque<WideString> open{shownPath(path)};
  bool isFound = false;
  while (!open.empty() && !isFound) {
    const WideString next = open.front();
    open.pop_front();
    if (!met.insert(next).second) continue;
    lookInto(next, [&](const xercesc::DOMDocument& document) {
      isFound = action(document);
      for (const WideString& import : importsOf(document, path)) open.push_back(import);
    });
  }
}

}  // namespace MXF::Tessel::Tool
