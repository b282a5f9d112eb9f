#include "Engine.h"

#include "loader/support/Sanitizers.h"
#include "loader/support/TemporaryFolder.h"

#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/Initializer.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/UnicodeString.h>

#include <xercesc/dom/DOMAttr.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

#ifdef TESSELMXF_ADDRESS_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

namespace MXF::Tessel::Test {

using xercesc::DOMDocument;
using xercesc::DOMNode;
using xercesc::DOMXPathNSResolver;
using xercesc::DOMXPathResult;

namespace {

xercesc::DOMImplementation& implementationOf(Engine::Kind kind) {
  // The initialiser readies both.
  xercesc::DOMImplementation& own = XMLUtils::Initializer::instance().domImplementation();
  return kind == Engine::Kind::Own ? own : *xercesc::DOMImplementationRegistry::getDOMImplementation(u"XPath2 3.0");
}

void appendNodes(DOMNode& node, std::vector<DOMNode*>& nodes) {
  nodes.push_back(&node);
  if (const xercesc::DOMNamedNodeMap* attributes = node.getAttributes()) {
    for (XMLSize_t i = 0; i < attributes->getLength(); ++i) nodes.push_back(attributes->item(i));
  }
  for (DOMNode* child = node.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
    appendNodes(*child, nodes);
  }
}

void reportLeaks([[maybe_unused]] bool reported) {
#ifdef TESSELMXF_ADDRESS_SANITIZER
  reported ? __lsan_enable() : __lsan_disable();
#endif
}

}  // namespace

std::u16string utf16(const std::string& utf8) {
  return XMLUtils::UnicodeString(wide(utf8).c_str()).utf16();
}

std::string utf8(const XMLCh* text) {
  return text == nullptr ? "(null)" : narrow(XMLUtils::toWstring(text));
}

Engine::Engine(Kind kind)
    : parser_(implementationOf(kind).createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr,
                                                    xercesc::XMLPlatformUtils::fgMemoryManager, nullptr)) {}

DOMDocument& Engine::read(const std::string& xml) {
  static const TemporaryFolder folder;
  const std::string path = folder.write(std::to_string(std::hash<std::string>()(xml)) + ".xml", xml);
  return *XMLUtils::loadDocumentFromFile(wide(path).c_str(), *parser_);
}

LeaksOfXQilla::LeaksOfXQilla() {
  reportLeaks(false);
}
LeaksOfXQilla::~LeaksOfXQilla() {
  reportLeaks(true);
}

DOMXPathNSResolver* Bindings::on(DOMDocument& document) const {
  if (from == From::Nothing) return nullptr;
  DOMXPathNSResolver* resolver =
      document.createNSResolver(from == From::Root ? document.getDocumentElement() : nullptr);
  for (const auto& [prefix, uri] : added) {
    resolver->addNamespaceBinding(utf16(prefix).c_str(), utf16(uri).c_str());
  }
  return resolver;
}

std::vector<DOMNode*> allNodes(DOMDocument& document) {
  std::vector<DOMNode*> nodes;
  appendNodes(document, nodes);
  return nodes;
}

std::string placeOf(const DOMNode* node) {
  if (node == nullptr) return "(null)";
  if (node->getNodeType() == DOMNode::DOCUMENT_NODE) return "";
  if (node->getNodeType() == DOMNode::ATTRIBUTE_NODE) {
    const auto* attribute = static_cast<const xercesc::DOMAttr*>(node);
    return placeOf(attribute->getOwnerElement()) + "/@" + utf8(attribute->getName());
  }
  std::size_t position = 0;
  for (const DOMNode* sibling = node->getPreviousSibling(); sibling != nullptr;
       sibling = sibling->getPreviousSibling()) {
    ++position;
  }
  return placeOf(node->getParentNode()) + "/" + std::to_string(position);
}

std::string answerOf(const std::function<std::string()>& action) {
  try {
    return action();
  } catch (const XQillaException& e) {
    return "XQillaException " + std::to_string(e.code) + ": " + utf8(e.getString());
  } catch (const xercesc::DOMException& e) {
    return "DOMException " + std::to_string(e.code) + ": " + utf8(e.getMessage());
  }
}

Expression expressionOf(DOMDocument& document, const std::string& query, const DOMXPathNSResolver* resolver) {
  return Expression(document.createExpression(utf16(query).c_str(), resolver));
}

QueryResult evaluate(const Expression& expression, const DOMNode* context, DOMXPathResult::ResultType type) {
  return QueryResult(expression->evaluate(context, type, nullptr));
}

std::string itemOf(const DOMXPathResult& result) {
  return std::string(result.isNode() ? "node " : "no node ") +
         answerOf([&] { return placeOf(result.getNodeValue()); }) + "; string " +
         answerOf([&] { return utf8(result.getStringValue()); }) + "; number " +
         answerOf([&] { return std::to_string(result.getNumberValue()); }) + "; integer " +
         answerOf([&] { return std::to_string(result.getIntegerValue()); }) + "; boolean " +
         answerOf([&] { return std::string(result.getBooleanValue() ? "true" : "false"); });
}

std::string itemsOf(DOMXPathResult& result) {
  if (result.getResultType() != iterator) return itemOf(result);
  std::string items;
  while (result.iterateNext()) items += itemOf(result) + "\n";
  return items;
}

std::string evaluated(DOMDocument& document, const DOMNode* context, const std::string& query,
                      const DOMXPathNSResolver* resolver, DOMXPathResult::ResultType type) {
  return answerOf([&] {
    const Expression expression = expressionOf(document, query, resolver);
    const QueryResult result = evaluate(expression, context, type);
    return itemsOf(*result);
  });
}

}  // namespace MXF::Tessel::Test
