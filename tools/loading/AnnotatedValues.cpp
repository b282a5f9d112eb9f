#include "loading/AnnotatedValues.h"

#include "loading/Annotations.h"
#include "loading/SchemaDocument.h"

#include <XMLUtils/SourcePosition.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNodeList.hpp>

#include <string_view>

namespace MXF::Tessel::Tool {

using Templates::WideString;
using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

/// The declaration that an appinfo annotates, or null.
const DOMElement* declarationOf(const DOMElement& appinfo) {
  const DOMNode* annotation = appinfo.getParentNode();
  const DOMNode* declaration = annotation == nullptr ? nullptr : annotation->getParentNode();
  const bool isElement = declaration != nullptr && declaration->getNodeType() == DOMNode::ELEMENT_NODE;
  return isElement ? static_cast<const DOMElement*>(declaration) : nullptr;
}

/// The first text within, which is all that the loader reads.
WideString firstText(const DOMElement& appinfo) {
  for (const DOMNode* child = appinfo.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
    const auto type = child->getNodeType();
    if (type == DOMNode::TEXT_NODE || type == DOMNode::CDATA_SECTION_NODE)
      return XMLUtils::toWstring(child->getNodeValue());
  }
  return {};
}

std::map<Position, WideString> valuesOf(const xercesc::DOMDocument& document, std::u16string_view source) {
  std::map<Position, WideString> values;
  const xercesc::DOMNodeList* found = document.getElementsByTagNameNS(u"http://www.w3.org/2001/XMLSchema", u"appinfo");
  for (XMLSize_t i = 0; i < found->getLength(); ++i) {
    const auto& appinfo = static_cast<const DOMElement&>(*found->item(i));
    const DOMElement* declaration = declarationOf(appinfo);
    if (declaration == nullptr || appinfo.getAttribute(u"source") != source) continue;
    const XMLUtils::SourcePosition position = XMLUtils::positionOf(*declaration);
    const WideString text = firstText(appinfo);
    if (!text.empty()) values.emplace(Position{position.line, position.column}, text);
  }
  return values;
}

}  // namespace

std::map<Position, WideString> annotatedValues(const WideString& path, const WideString& flavour) {
  std::map<Position, WideString> values;
  lookInto(path, [&](const xercesc::DOMDocument& document) {
    values = valuesOf(document, annotationsOf(flavour).distinguishedValue);
  });
  return values;
}

}  // namespace MXF::Tessel::Tool
