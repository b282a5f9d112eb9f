// Parses a file, with all the parser's ways to the outside closed.

#include "parsing/DocumentLimits.h"
#include "parsing/DocumentSource.h"
#include "parsing/FileContent.h"
#include "parsing/Parser.h"

#include <Utils/TextConversion.h>
#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/TextConversion.h>
#include <XMLUtils/UnicodeString.h>

#include <xercesc/dom/DOMConfiguration.hpp>
#include <xercesc/dom/DOMError.hpp>
#include <xercesc/dom/DOMErrorHandler.hpp>
#include <xercesc/dom/DOMLSResourceResolver.hpp>
#include <xercesc/dom/DOMLocator.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <memory>
#include <new>
#include <optional>

namespace MXF::Tessel::XMLUtils {

namespace {

using Templates::WideString;

/// Keeps the first error that the parser reports and has it stop there.
class FirstError : public xercesc::DOMErrorHandler {
 public:
  bool handleError(const xercesc::DOMError& error) override {
    if (error.getSeverity() == xercesc::DOMError::DOM_SEVERITY_WARNING) return true;
    if (error_ || hasRunOut_) return false;
    // The parser takes an exception of its error handler for permission to go on.
    try {
      const xercesc::DOMLocator* where = error.getLocation();
      error_.emplace(Error{toWstring(error.getMessage()), where->getLineNumber(), where->getColumnNumber()});
    } catch (const std::bad_alloc&) {
      hasRunOut_ = true;
    }
    return false;
  }

  void throwIfAny(const wchar_t* path) const {
    if (hasRunOut_) throw std::bad_alloc();
    if (!error_) return;
    const auto decimal = [](XMLFileLoc number) { return Utils::toDecimal(static_cast<long long>(number)); };
    const WideString text =
        path + (L":" + decimal(error_->line) + L":" + decimal(error_->column) + L": " + error_->message);
    throw xercesc::SAXParseException(UnicodeString(text.c_str()).utf16(), nullptr, UnicodeString(path).utf16(),
                                     error_->line, error_->column);
  }

 private:
  struct Error {
    WideString message;
    XMLFileLoc line;
    XMLFileLoc column;
  };
  std::optional<Error> error_;
  bool hasRunOut_ = false;  // of memory for an error
};

/// Answers every request for an external DTD or entity with an empty one.
class NothingOutside : public xercesc::DOMLSResourceResolver {
 public:
  explicit NothingOutside(xercesc::MemoryManager& memory) : memory_(memory) {}

  xercesc::DOMLSInput* resolveResource(const XMLCh* /*resourceType*/, const XMLCh* /*namespaceUri*/,
                                       const XMLCh* /*publicId*/, const XMLCh* systemId,
                                       const XMLCh* /*baseURI*/) override {
    static constexpr XMLByte nothing = 0;
    using xercesc::MemBufInputSource;
    std::unique_ptr<MemBufInputSource> source(new (&memory_)
                                                  MemBufInputSource(&nothing, XMLSize_t{0}, systemId, false, &memory_));
    auto input = std::make_unique<xercesc::Wrapper4InputSource>(source.get(), true, &memory_);
    static_cast<void>(source.release());  // adopted by the wrapper
    return input.release();               // adopted by the parser
  }

 private:
  xercesc::MemoryManager& memory_;
};

/// The parser's settings for one document. The handlers are taken off again at the end, since they live no longer.
class ParserSettings {
 public:
  explicit ParserSettings(xercesc::DOMLSParser& parser, xercesc::MemoryManager& memory, FirstError& errors)
      : configuration_(*parser.getDomConfig()), nothingOutside_(memory) {
    using xercesc::XMLUni;
    for (const XMLCh* on : {XMLUni::fgDOMNamespaces, XMLUni::fgDOMNamespaceDeclarations, XMLUni::fgDOMComments,
                            XMLUni::fgDOMCDATASections, XMLUni::fgDOMElementContentWhitespace}) {
      configuration_.setParameter(on, true);
    }
    // A parser that caches grammars refuses an internal DTD subset, and XQilla's parsers are made so.
    for (const XMLCh* off : {XMLUni::fgDOMValidate, XMLUni::fgDOMValidateIfSchema, XMLUni::fgXercesSchema,
                             XMLUni::fgXercesLoadExternalDTD, XMLUni::fgDOMEntities, XMLUni::fgDOMDatatypeNormalization,
                             XMLUni::fgXercesCacheGrammarFromParse, XMLUni::fgXercesUseCachedGrammarInParse}) {
      configuration_.setParameter(off, false);
    }
    limits_.setEntityExpansionLimit(Limits::entityExpansions.count);
    setHandlers(&errors, &nothingOutside_, &limits_);
  }
  ParserSettings(const ParserSettings&) = delete;
  ParserSettings& operator=(const ParserSettings&) = delete;
  ~ParserSettings() { setHandlers(nullptr, nullptr, nullptr); }

 private:
  void setHandlers(const xercesc::DOMErrorHandler* errors, const xercesc::DOMLSResourceResolver* resolver,
                   const xercesc::SecurityManager* limits) {
    using xercesc::XMLUni;
    configuration_.setParameter(XMLUni::fgDOMErrorHandler, errors);
    configuration_.setParameter(XMLUni::fgDOMResourceResolver, resolver);
    configuration_.setParameter(XMLUni::fgXercesSecurityManager, limits);
  }

  xercesc::DOMConfiguration& configuration_;
  NothingOutside nothingOutside_;
  xercesc::SecurityManager limits_;
};

}  // namespace

xercesc::DOMDocument* loadDocumentFromFile(const wchar_t* path, xercesc::DOMLSParser& parser, Counting counting) try {
  const std::optional<FileContent> content = readFile(path);
  if (!content) return nullptr;

  FirstError errors;
  auto* own = dynamic_cast<Parser*>(&parser);
  if (own != nullptr) own->setCounting(counting);
  const ParserSettings settings(parser, own == nullptr ? *xercesc::XMLPlatformUtils::fgMemoryManager : own->memory,
                                errors);
  const UnicodeString systemId(path);
  DocumentSource source(*content, systemId.utf16(), own);
  const xercesc::Wrapper4InputSource input(&source, false);
  xercesc::DOMDocument* document = parser.parse(&input);
  errors.throwIfAny(path);
  return document;
} catch (const xercesc::OutOfMemoryException&) {
  throw std::bad_alloc();
}

}  // namespace MXF::Tessel::XMLUtils
