#pragma once

#include <XMLUtils/Released.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationLS.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMLSParser.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>

#include <stdexcept>
#include <string>

namespace MXF::Tessel::Test {

/// What a host does with Xerces-C itself: it takes the registry's implementation and parses a document with it, one whose
/// internal DTD subset is refused by parsers that cache grammars.
/// @throws std::runtime_error  the document is not as it should be.
inline void useXercesAsHost() {
  static const std::string text = "<!DOCTYPE a [<!ENTITY e 'text'>]><a>&e;</a>";
  xercesc::DOMImplementation* implementation = xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS");
  if (implementation == nullptr) throw std::runtime_error("no implementation");
  const XMLUtils::Released<xercesc::DOMLSParser> parser(
      implementation->createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
  xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(text.data()), text.size(), "text");
  const xercesc::Wrapper4InputSource input(&source, false);
  const xercesc::DOMDocument* document = parser->parse(&input);
  const xercesc::DOMElement* root = document == nullptr ? nullptr : document->getDocumentElement();
  if (root == nullptr || std::u16string(root->getTextContent()) != u"text") throw std::runtime_error("not parsed");
}

}  // namespace MXF::Tessel::Test
