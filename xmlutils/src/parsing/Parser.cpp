#include "Parser.h"

#include "PositionedElement.h"
#include "xpath/XPathDocument.h"

#include <XMLUtils/UnicodeString.h>

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/impl/DOMElementImpl.hpp>
#include <xercesc/dom/impl/DOMTextImpl.hpp>
#include <xercesc/framework/XMLAttDef.hpp>
#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/util/KVStringPair.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/DTD/DTDElementDecl.hpp>
#include <xercesc/validators/DTD/DTDEntityDecl.hpp>

#include <limits>
#include <string>

namespace MXF::Tessel::XMLUtils {

namespace {

constexpr bool isKnownVersion = XERCES_VERSION_MAJOR == 3 && XERCES_VERSION_MINOR == 2;

/// Where a child keeps its siblings.
xercesc::DOMChildNode& siblingsOf(xercesc::DOMNode& node) {
  switch (node.getNodeType()) {
    case xercesc::DOMNode::ELEMENT_NODE:
      return static_cast<xercesc::DOMElementImpl&>(static_cast<xercesc::DOMElement&>(node)).fChild;
    case xercesc::DOMNode::TEXT_NODE:
      return static_cast<xercesc::DOMTextImpl&>(static_cast<xercesc::DOMText&>(node)).fChild;
    default:
      return *dynamic_cast<xercesc::HasDOMChildImpl&>(node).getChildNodeImpl();
  }
}

/// Adds the text as the last child: the first child's previous sibling is the last.
void appendText(xercesc::DOMParentNode& parent, xercesc::DOMTextImpl& text) {
  text.fNode.fOwnerNode = parent.fContainingNode;
  text.fNode.isOwned(true);
  if (parent.fFirstChild == nullptr) {
    parent.fFirstChild = &text;
    text.fNode.isFirstChild(true);
    text.fChild.previousSibling = &text;
    return;
  }
  xercesc::DOMChildNode& first = siblingsOf(*parent.fFirstChild);
  siblingsOf(*first.previousSibling).nextSibling = &text;
  text.fChild.previousSibling = first.previousSibling;
  first.previousSibling = &text;
}

constexpr std::size_t emptyComment = 7;  // characters

std::size_t countOfDefaults(const xercesc::DTDElementDecl& element) {
  if (!element.hasAttDefs()) return 0;
  const xercesc::XMLAttDefList& attributes = element.getAttDefList();
  std::size_t count = 0;
  for (XMLSize_t i = 0; i < attributes.getAttDefCount(); ++i) {
    if (attributes.getAttDef(i).getValue() != nullptr) ++count;
  }
  return count;
}

}  // namespace

Parser::Parser(XPath::XPathImplementation& implementation, xercesc::MemoryManager& source,
               xercesc::XMLGrammarPool* grammarPool)
    : ParserMemory(source),
      DOMLSParserImpl(nullptr, &memory, grammarPool),
      implementation_(implementation),
      namespaces_(*this, &memory) {
  fScanner->setURIStringPool(&namespaces_);
  // The scanner keeps all attributes of a tag in such pairs before it compares them with each other.
  memory.watch(xercesc::XMLPlatformUtils::alignPointerForNewBlockAllocation(sizeof(xercesc::MemoryManager*)) +
               sizeof(xercesc::KVStringPair));
}

xercesc::DOMDocument* Parser::parse(const xercesc::DOMLSInput* input) {
  // What the scanner keeps from file to file may be half-written.
  if (memory.hasRunOut()) renewScanner();
  return DOMLSParserImpl::parse(input);
}

void Parser::renewScanner() {
  beginBudget();
  const bool loadsExternalDtd = getLoadExternalDTD();  // not among the settings that the new scanner takes over
  useScanner(xercesc::XMLUni::fgIGXMLScanner);
  setLoadExternalDTD(loadsExternalDtd);
  namespaces_.flushAll();
  fScanner->setURIStringPool(&namespaces_);
  memory.forgetRunningOut();
}

void Parser::beginBudget() {
  const DocumentBudget::Totals totals = budget_.totals();
  budget_ = counting_ == Counting::Anew ? DocumentBudget() : DocumentBudget(totals);
}

void Parser::startDocument() {
  beginBudget();
  fDocument = new (fMemoryManager) XPath::XPathDocument(&implementation_, fMemoryManager, queries_);
  fCurrentParent = fDocument;
  fCurrentNode = fDocument;
  fDocument->setErrorChecking(false);  // until endDocument()
  fDocument->setDocumentURI(fScanner->getLocator()->getSystemId());
  fDocument->setInputEncoding(fScanner->getReaderMgr()->getCurrentEncodingStr());
  notePosition();
}

void Parser::XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone,
                     const XMLCh* actualEncoding) {
  try {
    DOMLSParserImpl::XMLDecl(version, encoding, standalone, actualEncoding);
  } catch (const xercesc::DOMException&) {
    std::u16string message(u"unsupported XML version '");  // what the scanner says of 2.0
    stop(message.append(version).append(u"'").c_str());
  }
  notePosition();
}

void Parser::startElement(const xercesc::XMLElementDecl& declaration, unsigned int namespaceId, const XMLCh* prefix,
                          const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount,
                          bool isEmpty, bool isRoot) {
  check(budget_.enterElement());
  check(budget_.addNodes(1 + attributeCount));
  check(budget_.useName(prefix, declaration.getBaseName()));
  check(budget_.resolvePrefix(namespaces_.lengthOf(namespaceId)));
  check(DocumentBudget::haveAttributes(attributeCount));
  if (declaration.hasAttDefs()) check(budget_.compareWithDeclared(declaration.getAttDefList().getAttDefCount()));
  for (XMLSize_t i = 0; i < attributeCount; ++i) countAttribute(*attributes.elementAt(i));
  DOMLSParserImpl::startElement(declaration, namespaceId, prefix, attributes, attributeCount, isEmpty, isRoot);
  notePosition();
}

void Parser::countAttribute(const xercesc::XMLAttr& attribute) {
  check(budget_.useName(attribute.getPrefix(), attribute.getName()));
  if (*attribute.getPrefix() != u'\0') check(budget_.resolvePrefix(namespaces_.lengthOf(attribute.getURIId())));
  if (attribute.getType() == xercesc::XMLAttDef::ID) check(budget_.declareIdentifier());
  // Entities are reported where they stand in content, but not in values.
  if (budget_.hasEntities()) check(budget_.expandText(xercesc::XMLString::stringLen(attribute.getValue())));
  if (attribute.getSpecified()) return;
  check(budget_.makeDefaults(1));
  check(budget_.repeatDefaultValue(xercesc::XMLString::stringLen(attribute.getValue())));
}

xercesc::DOMElement* Parser::createElementNS(const XMLCh* namespaceUri, const XMLCh* prefix, const XMLCh* localName,
                                             const XMLCh* qualifiedName) {
  return new (fDocument) PositionedElement(position_, fDocument, namespaceUri, prefix, localName, qualifiedName);
}

void Parser::endElement(const xercesc::XMLElementDecl& declaration, unsigned int namespaceId, bool isRoot,
                        const XMLCh* prefix) {
  budget_.leaveElement();
  DOMLSParserImpl::endElement(declaration, namespaceId, isRoot, prefix);
  notePosition();
}

void Parser::docCharacters(const XMLCh* characters, XMLSize_t length, bool isCdataSection) {
  check(budget_.addNodes(1));
  notePosition();
  const bool beginsText = isKnownVersion && fWithinElement && !isCdataSection && getFilter() == nullptr &&
                          fCurrentNode->getNodeType() != xercesc::DOMNode::TEXT_NODE &&
                          fCurrentParent->getNodeType() == xercesc::DOMNode::ELEMENT_NODE;
  if (!beginsText) {
    DOMLSParserImpl::docCharacters(characters, length, isCdataSection);
    return;
  }
  auto* text = static_cast<xercesc::DOMTextImpl*>(createText(characters, length));
  appendText(static_cast<xercesc::DOMElementImpl*>(fCurrentParent)->fParent, *text);
  fCurrentNode = text;
}

void Parser::docComment(const XMLCh* text) {
  check(budget_.addNodes(1));
  DOMLSParserImpl::docComment(text);
  notePosition();
}

void Parser::docPI(const XMLCh* target, const XMLCh* data) {
  check(budget_.addNodes(1));
  DOMLSParserImpl::docPI(target, data);
  notePosition();
}

void Parser::ignorableWhitespace(const XMLCh* characters, XMLSize_t length, bool isCdataSection) {
  check(budget_.addNodes(1));
  DOMLSParserImpl::ignorableWhitespace(characters, length, isCdataSection);
  notePosition();
}

void Parser::startEntityReference(const xercesc::XMLEntityDecl& entity) {
  check(budget_.expandText(entity.getValueLen()));
  DOMLSParserImpl::startEntityReference(entity);
  notePosition();
}

void Parser::endEntityReference(const xercesc::XMLEntityDecl& entity) {
  DOMLSParserImpl::endEntityReference(entity);
  notePosition();
}

void Parser::startIntSubset() {
  budget_.beginDoctype();
  DOMLSParserImpl::startIntSubset();
}

void Parser::endIntSubset() {
  budget_.endDoctype();
  DOMLSParserImpl::endIntSubset();
}

void Parser::attDef(const xercesc::DTDElementDecl& element, const xercesc::DTDAttDef& attribute, bool isIgnored) {
  check(budget_.declare());
  DOMLSParserImpl::attDef(element, attribute, isIgnored);
}

void Parser::endAttList(const xercesc::DTDElementDecl& element) {
  check(budget_.declare());  // also where a list is empty: all attributes of the element are gone through
  check(budget_.makeDefaults(countOfDefaults(element)));
  try {
    DOMLSParserImpl::endAttList(element);
  } catch (const xercesc::DOMException&) {
    std::u16string message(u"invalid attribute name declared for element '");
    stop(message.append(element.getFullName()).append(u"'").c_str());
  }
}

void Parser::elementDecl(const xercesc::DTDElementDecl& declaration, bool isIgnored) {
  check(budget_.declare());
  DOMLSParserImpl::elementDecl(declaration, isIgnored);
}

void Parser::entityDecl(const xercesc::DTDEntityDecl& declaration, bool isParameterEntity, bool isIgnored) {
  check(budget_.declareEntity(declaration.getValue(), isParameterEntity));
  DOMLSParserImpl::entityDecl(declaration, isParameterEntity, isIgnored);
}

void Parser::notationDecl(const xercesc::XMLNotationDecl& declaration, bool isIgnored) {
  check(budget_.declare());
  DOMLSParserImpl::notationDecl(declaration, isIgnored);
}

void Parser::doctypeComment(const XMLCh* text) {
  check(budget_.haveDoctypeText(emptyComment + xercesc::XMLString::stringLen(text)));
  DOMLSParserImpl::doctypeComment(text);
}

void Parser::doctypePI(const XMLCh* target, const XMLCh* data) {
  check(budget_.haveDoctypeText(xercesc::XMLString::stringLen(target) + xercesc::XMLString::stringLen(data)));
  DOMLSParserImpl::doctypePI(target, data);
}

void Parser::doctypeWhitespace(const XMLCh* characters, XMLSize_t length) {
  check(budget_.haveDoctypeText(length));
  DOMLSParserImpl::doctypeWhitespace(characters, length);
}

unsigned int Parser::Namespaces::addOrFind(const XMLCh* namespaceUri) {
  parser_.check(parser_.budget_.declarePrefix(xercesc::XMLString::stringLen(namespaceUri), getStringCount()));
  return XMLStringPool::addOrFind(namespaceUri);
}

void Parser::Namespaces::flushAll() {
  XMLStringPool::flushAll();
  lengths_.clear();
}

std::size_t Parser::Namespaces::lengthOf(unsigned int id) {
  constexpr std::size_t unknown = std::numeric_limits<std::size_t>::max();
  if (id >= lengths_.size()) lengths_.resize(id + 1, unknown);
  std::size_t& length = lengths_[id];
  if (length == unknown) length = xercesc::XMLString::stringLen(getValueForId(id));
  return length;
}

void Parser::beginDocument() {
  beginBudget();
  memory.forgetWatchedBlocks();
}

void Parser::countRead(std::size_t bytes) {
  check(budget_.read(bytes));
  check(budget_.makeRoom(memory.watchedBlocks()));
}

void Parser::notePosition() {
  memory.forgetWatchedBlocks();
  const xercesc::Locator& where = *fScanner->getLocator();
  position_ = {static_cast<std::uint32_t>(where.getLineNumber()), static_cast<std::uint32_t>(where.getColumnNumber())};
}

void Parser::check(const Limit* exceeded) {
  if (exceeded != nullptr) stop(UnicodeString(messageOf(*exceeded).c_str()).utf16());
}

void Parser::stop(const XMLCh* message) {
  const xercesc::Locator& where = *fScanner->getLocator();
  using xercesc::XMLErrs;
  error(XMLErrs::XMLException_Fatal, xercesc::XMLUni::fgXMLErrDomain, xercesc::XMLErrorReporter::ErrType_Fatal, message,
        where.getSystemId(), where.getPublicId(), where.getLineNumber(), where.getColumnNumber());
  throw XMLErrs::Codes{XMLErrs::XMLException_Fatal};  // also where a handler wants to go on
}

}  // namespace MXF::Tessel::XMLUtils
