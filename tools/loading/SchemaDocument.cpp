#include "loading/SchemaDocument.h"

#include "loading/Failure.h"

#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/Initializer.h>
#include <XMLUtils/Released.h>
#include <XMLUtils/SourcePosition.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMLSParser.hpp>

namespace MXF::Tessel::Tool {

using xercesc::DOMElement;

void lookInto(const Templates::WideString& path, const std::function<void(const xercesc::DOMDocument&)>& action) {
  static_cast<void>(failureOf([&] {
    xercesc::DOMImplementation& implementation = XMLUtils::Initializer::instance().domImplementation();
    const XMLUtils::Released<xercesc::DOMLSParser> parser(
        implementation.createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
    const xercesc::DOMDocument* document = XMLUtils::loadDocumentFromFile(path.c_str(), *parser);
    if (document != nullptr) action(*document);
  }));
}

DeclarationPosition declarationPositionOf(const DOMElement& element) {
  const XMLUtils::SourcePosition position = XMLUtils::positionOf(element);
  return {position.line, position.column};
}

const DOMElement* elementAt(const xercesc::DOMDocument& document, std::uint32_t line, std::uint32_t column) {
  const DOMElement* found = nullptr;
  const auto look = [&](const DOMElement& element) {
    if (found == nullptr && declarationPositionOf(element) == DeclarationPosition(line, column)) found = &element;
  };
  look(*document.getDocumentElement());
  forEachWithin(*document.getDocumentElement(), look);
  return found;
}

bool isNamed(const xercesc::DOMElement& element, std::u16string_view localName) {
  const XMLCh* name = element.getLocalName();
  return name != nullptr && name == localName;
}

bool isDeclaredAbstract(const DOMElement& declaration) {
  return std::u16string_view(declaration.getAttribute(u"abstract")) == u"true";
}

std::pair<Templates::WideString, Templates::WideString> nameIn(const DOMElement& element, const char16_t* attribute) {
  const std::u16string name = element.getAttribute(attribute);
  const std::size_t colon = name.find(u':');
  const bool hasPrefix = colon != std::u16string::npos;
  const XMLCh* uri = element.lookupNamespaceURI(hasPrefix ? name.substr(0, colon).c_str() : nullptr);
  return {uri == nullptr ? Templates::WideString() : XMLUtils::toWstring(uri),
          XMLUtils::toWstring(hasPrefix ? name.c_str() + colon + 1 : name.c_str())};
}

std::optional<Templates::WideString> annotationOf(const DOMElement& declaration, std::u16string_view source) {
  for (const DOMElement* annotation = declaration.getFirstElementChild(); annotation != nullptr;
       annotation = annotation->getNextElementSibling()) {
    if (!isNamed(*annotation, u"annotation")) continue;
    for (const DOMElement* appinfo = annotation->getFirstElementChild(); appinfo != nullptr;
         appinfo = appinfo->getNextElementSibling()) {
      if (isNamed(*appinfo, u"appinfo") && appinfo->getAttribute(u"source") == source) {
        return XMLUtils::toWstring(appinfo->getTextContent());
      }
    }
  }
  return std::nullopt;
}

}  // namespace MXF::Tessel::Tool
