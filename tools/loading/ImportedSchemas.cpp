// Follows the imports of a schema. Entry point: lookIntoWithImports(); all else is local.

#include "loading/ImportedSchemas.h"

#include "loading/Failure.h"
#include "loading/SchemaDocument.h"

#include <XMLUtils/TextConversion.h>

#include <deque>
#include <set>

namespace MXF::Tessel::Tool {

using Templates::WideString;

namespace {

/// The locations of a schema's imports, from the folder given.
std::deque<WideString> importsOf(const xercesc::DOMDocument& document, const WideString& folder) {
  std::deque<WideString> paths;
  forEachChild(*document.getDocumentElement(), [&](const xercesc::DOMElement& import) {
    if (!isNamed(import, u"import") || !import.hasAttribute(u"schemaLocation")) return;
    paths.push_back(shownPath(folder + XMLUtils::toWstring(import.getAttribute(u"schemaLocation"))));
  });
  return paths;
}

}  // namespace

void lookIntoWithImports(const WideString& path, const std::function<bool(const xercesc::DOMDocument&)>& action) {
  const WideString folder = path.substr(0, path.rfind(L'/') + 1);  // none when there is no slash
  std::set<WideString> met;
  std::deque<WideString> open{shownPath(path)};
  bool isFound = false;
  while (!open.empty() && !isFound) {
    const WideString next = open.front();
    open.pop_front();
    if (!met.insert(next).second) continue;
    lookInto(next, [&](const xercesc::DOMDocument& document) {
      isFound = action(document);
      for (const WideString& import : importsOf(document, folder)) open.push_back(import);
    });
  }
}

}  // namespace MXF::Tessel::Tool
