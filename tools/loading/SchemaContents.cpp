// Looks at the annotations of top-level declarations, as the loader's queries do, but in both flavours and for both
// kinds at once. Entry point: schemaContents(); all else is local.

#include "loading/SchemaContents.h"

#include "loading/Annotations.h"
#include "loading/SchemaDocument.h"

#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

#include <string_view>

namespace MXF::Tessel::Tool {

using Templates::WideString;
using xercesc::DOMElement;

namespace {

template <class Action>
void forEachChildNamed(std::u16string_view localName, const DOMElement& parent, const Action& action) {
  forEachChild(parent, [&](const DOMElement& child) {
    if (isNamed(child, localName)) action(child);
  });
}

void countAnnotation(const DOMElement& declaration, std::u16string_view source, SchemaContents& contents) {
  const bool isElement = isNamed(declaration, u"element");
  if (source == urnAnnotations.elementLabel) ++contents.urn.elements;
  if (source == registryAnnotations.elementLabel) ++contents.registry.elements;
  if (source == urnAnnotations.groupKey && isElement) ++contents.urn.groups;
  if (source == registryAnnotations.groupKey && isElement) ++contents.registry.groups;
}

SchemaContents contentsOf(const DOMElement& schema) {
  SchemaContents contents;
  contents.targetNamespace = XMLUtils::toWstring(schema.getAttribute(u"targetNamespace"));
  forEachChild(schema, [&](const DOMElement& declaration) {
    forEachChildNamed(u"annotation", declaration, [&](const DOMElement& annotation) {
      forEachChildNamed(u"appinfo", annotation, [&](const DOMElement& information) {
        countAnnotation(declaration, information.getAttribute(u"source"), contents);
      });
    });
  });
  return contents;
}

}  // namespace

std::optional<SchemaContents> schemaContents(const std::string& path) {
  std::optional<SchemaContents> contents;
  lookInto(Utils::stringToWstring(path.c_str()), [&](const xercesc::DOMDocument& document) {
    if (document.getDocumentElement() != nullptr) contents.emplace(contentsOf(*document.getDocumentElement()));
  });
  return contents;
}

}  // namespace MXF::Tessel::Tool
