#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace MXF::Tessel::Tool {

/// Looks at a document as the loader does. Does nothing when it cannot be read or is not well-formed: a failure is the
/// loader's to tell, and here only means that there is nothing to see.
void lookInto(const Templates::WideString& path, const std::function<void(const xercesc::DOMDocument&)>& action);

/// Line and column at which a declaration begins.
using DeclarationPosition = std::pair<std::uint32_t, std::uint32_t>;
DeclarationPosition declarationPositionOf(const xercesc::DOMElement& element);

/// The element whose start tag begins there, or null.
const xercesc::DOMElement* elementAt(const xercesc::DOMDocument& document, std::uint32_t line, std::uint32_t column);

bool isNamed(const xercesc::DOMElement& element, std::u16string_view localName);

/// Whether a group is declared as abstract.
bool isDeclaredAbstract(const xercesc::DOMElement& declaration);

/// Namespace and local name of what an attribute names; the namespace is empty where the prefix stands for none.
std::pair<Templates::WideString, Templates::WideString> nameIn(const xercesc::DOMElement& element,
                                                               const char16_t* attribute);

/// Calls the action with each child element.
template <class Action>
void forEachChild(const xercesc::DOMElement& parent, const Action& action) {
  for (const xercesc::DOMElement* child = parent.getFirstElementChild(); child != nullptr;
       child = child->getNextElementSibling()) {
    action(*child);
  }
}

/// Calls the action with each element below the given one, in the order of the document. The lists of the parser's own
/// are no substitute: each one that is asked for makes all that are asked for later slower.
template <class Action>
void forEachWithin(const xercesc::DOMElement& root, const Action& action) {
  const xercesc::DOMElement* element = root.getFirstElementChild();
  while (element != nullptr) {
    action(*element);
    const xercesc::DOMElement* next = element->getFirstElementChild();
    while (next == nullptr && element != &root) {
      next = element->getNextElementSibling();
      if (next == nullptr) element = static_cast<const xercesc::DOMElement*>(element->getParentNode());
    }
    element = next;
  }
}

/// The text of the first appinfo of that source that annotates a declaration; nothing when there is none.
std::optional<Templates::WideString> annotationOf(const xercesc::DOMElement& declaration, std::u16string_view source);

}  // namespace MXF::Tessel::Tool
