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

bool isNamed(const DOMElement& element, std::u16string_view localName) {
  const XMLCh* name = element.getLocalName();
  return name != nullptr && name == localName;
}

/// Calls the action for each child element of that name, or for every child element when the name is empty.
template <class Action>
void forEachChild(const DOMElement& parent, std::u16string_view localName, const Action& action) {
  for (const DOMElement* child = parent.getFirstElementChild(); child != nullptr;
       child = child->getNextElementSibling()) {
    if (localName.empty() || isNamed(*child, localName)) action(*child);
  }
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
  forEachChild(schema, u"", [&](const DOMElement& declaration) {
    forEachChild(declaration, u"annotation", [&](const DOMElement& annotation) {
      forEachChild(annotation, u"appinfo", [&](const DOMElement& information) {
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
