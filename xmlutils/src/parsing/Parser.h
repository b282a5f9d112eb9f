#pragma once

#include "DocumentBudget.h"
#include "OwnedMemory.h"
#include "xpath/QueryCache.h"
#include "xpath/XPathImplementation.h"

#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/SourcePosition.h>

#include <xercesc/parsers/DOMLSParserImpl.hpp>
#include <xercesc/util/StringPool.hpp>

#include <cstddef>
#include <memory>
#include <vector>

namespace MXF::Tessel::XMLUtils {

/// A parser's memory, made before the parser and freed after it.
struct ParserMemory {
  explicit ParserMemory(xercesc::MemoryManager& source) : memory(source) {}
  OwnedMemory memory;
};

/// A parser that makes XPathDocuments and stops, as at text that is not well-formed, where a document exceeds a limit
/// (DocumentLimits.h). Xerces-C could be told to take its documents from a registered implementation, but the
/// registration is process-wide and outlives a library that is unloaded.
class Parser : private ParserMemory, public xercesc::DOMLSParserImpl {
 public:
  Parser(XPath::XPathImplementation& implementation, xercesc::MemoryManager& source,
         xercesc::XMLGrammarPool* grammarPool);
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  using DOMLSParserImpl::parse;
  xercesc::DOMDocument* parse(const xercesc::DOMLSInput* input) override;

  void setCounting(Counting counting) { counting_ = counting; }

  /// What all of the parser is made with, and what it reads from should be.
  using ParserMemory::memory;

  void startDocument() override;
  /// Refuses a version of XML that the document does not know: the scanner takes 1.2, say, for 1.0.
  void XMLDecl(const XMLCh* version, const XMLCh* encoding, const XMLCh* standalone,
               const XMLCh* actualEncoding) override;
  void startElement(const xercesc::XMLElementDecl& declaration, unsigned int namespaceId, const XMLCh* prefix,
                    const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount, bool isEmpty,
                    bool isRoot) override;
  void endElement(const xercesc::XMLElementDecl& declaration, unsigned int namespaceId, bool isRoot,
                  const XMLCh* prefix) override;
  /// Appends a text to the current element. Xerces-C finds the parts of each node that it links by half a dozen run-time
  /// casts, a third of what parsing costs; texts and elements, whose classes are known here, are linked without. Only with
  /// the version whose nodes are known to be linked like this.
  void docCharacters(const XMLCh* characters, XMLSize_t length, bool isCdataSection) override;

  void docComment(const XMLCh* text) override;
  void docPI(const XMLCh* target, const XMLCh* data) override;
  void ignorableWhitespace(const XMLCh* characters, XMLSize_t length, bool isCdataSection) override;
  void startEntityReference(const xercesc::XMLEntityDecl& entity) override;
  void endEntityReference(const xercesc::XMLEntityDecl& entity) override;

  void startIntSubset() override;
  void endIntSubset() override;
  void attDef(const xercesc::DTDElementDecl& element, const xercesc::DTDAttDef& attribute, bool isIgnored) override;
  /// Refuses names such as a:b:c, with a default, which the document cannot hold and the scanner lets pass.
  void endAttList(const xercesc::DTDElementDecl& element) override;
  void elementDecl(const xercesc::DTDElementDecl& declaration, bool isIgnored) override;
  void entityDecl(const xercesc::DTDEntityDecl& declaration, bool isParameterEntity, bool isIgnored) override;
  void notationDecl(const xercesc::XMLNotationDecl& declaration, bool isIgnored) override;
  void doctypeComment(const XMLCh* text) override;
  void doctypePI(const XMLCh* target, const XMLCh* data) override;
  void doctypeWhitespace(const XMLCh* characters, XMLSize_t length) override;

  /// Told by the source of the document: that it is about to be read, which the parser itself reports only after the
  /// first bytes, and how much of it is.
  void beginDocument();
  void countRead(std::size_t bytes);

 protected:
  xercesc::DOMElement* createElementNS(const XMLCh* namespaceUri, const XMLCh* prefix, const XMLCh* localName,
                                       const XMLCh* qualifiedName) override;

 private:
  /// The pool in which the scanner keeps namespaces. It is asked for one whenever an element declares a prefix, long
  /// before the element is reported.
  class Namespaces : public xercesc::XMLStringPool {
   public:
    Namespaces(Parser& parser, xercesc::MemoryManager* manager) : XMLStringPool(manager), parser_(parser) {}
    unsigned int addOrFind(const XMLCh* namespaceUri) override;
    void flushAll() override;
    /// Characters in the name of a namespace.
    std::size_t lengthOf(unsigned int id);

   private:
    Parser& parser_;
    std::vector<std::size_t> lengths_;  ///< By number; only of those that have been asked for.
  };

  void beginBudget();
  /// Takes another scanner.
  void renewScanner();
  /// Counts an attribute of an element that is about to be made.
  void countAttribute(const xercesc::XMLAttr& attribute);
  /// Stops the parser if the document has exceeded a limit.
  void check(const Limit* exceeded);
  /// Reports a fatal error at the present place and stops the parser.
  [[noreturn]] void stop(const XMLCh* message);

  /// What follows begins here: called at the end of every event, since the parser reports an element only when it has
  /// read the whole start tag.
  void notePosition();

  XPath::XPathImplementation& implementation_;
  std::shared_ptr<XPath::QueryCache> queries_ = std::make_shared<XPath::QueryCache>();
  DocumentBudget budget_;
  Counting counting_ = Counting::Anew;
  Namespaces namespaces_;
  SourcePosition position_;
};

}  // namespace MXF::Tessel::XMLUtils
