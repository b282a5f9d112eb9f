// Reads a file into memory and parses it, with all the parser's ways to the outside closed.

#include <Exceptions/Exceptions.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/Released.h>
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
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace MXF::Tessel::XMLUtils {

namespace {

using Templates::WideString;
using FileContent = Templates::vector<XMLByte>;

// Schemas use few entities or none; a bomb of nested entities needs millions of expansions.
constexpr XMLSize_t entityExpansionLimit = 10'000;

class FileDescriptor {
 public:
  explicit FileDescriptor(const char* path) : descriptor_(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (isOpen()) close(descriptor_);
  }

  bool isOpen() const { return descriptor_ >= 0; }
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

[[noreturn]] void throwReadError(const wchar_t* path, int error) {
  const WideString reason = Utils::stringToWstring(std::generic_category().message(error).c_str());
  throw Exceptions::IOError((WideString(path) + L": " + reason).c_str(), "DocumentLoading", __LINE__);
}

/// The whole file, or nothing when it cannot be opened or is no regular file.
std::optional<FileContent> readFile(const wchar_t* path) {
  const FileDescriptor file(Utils::wstringToString(path).c_str());
  if (!file.isOpen()) return std::nullopt;
  struct stat status {};
  if (fstat(file.get(), &status) != 0) throwReadError(path, errno);
  // A schema names the files that it imports; a pipe or a device may never answer, or never end.
  if (!S_ISREG(status.st_mode)) return std::nullopt;

  FileContent content;
  // One byte more than the file has, so that its end shows without growing the buffer.
  content.resize(static_cast<std::size_t>(status.st_size) + 1);
  std::size_t size = 0;
  while (true) {
    if (size == content.size()) content.resize(size * 2);
    const ssize_t count = read(file.get(), content.data() + size, content.size() - size);
    if (count == 0) break;
    if (count > 0) size += static_cast<std::size_t>(count);
    if (count < 0 && errno != EINTR) throwReadError(path, errno);
  }
  content.resize(size);
  return content;
}

/// Keeps the first error that the parser reports and has it stop there.
class FirstError : public xercesc::DOMErrorHandler {
 public:
  bool handleError(const xercesc::DOMError& error) override {
    if (error.getSeverity() == xercesc::DOMError::DOM_SEVERITY_WARNING) return true;
    if (!error_) {
      const xercesc::DOMLocator* where = error.getLocation();
      error_.emplace(Error{toWstring(error.getMessage()), where->getLineNumber(), where->getColumnNumber()});
    }
    return false;
  }

  void throwIfAny(const wchar_t* path) const {
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
};

/// Answers every request for an external DTD or entity with an empty one.
class NothingOutside : public xercesc::DOMLSResourceResolver {
 public:
  xercesc::DOMLSInput* resolveResource(const XMLCh* /*resourceType*/, const XMLCh* /*namespaceUri*/,
                                       const XMLCh* /*publicId*/, const XMLCh* systemId,
                                       const XMLCh* /*baseURI*/) override {
    static constexpr XMLByte nothing = 0;
    auto source = std::make_unique<xercesc::MemBufInputSource>(&nothing, XMLSize_t{0}, systemId);
    auto input = std::make_unique<xercesc::Wrapper4InputSource>(source.get(), true);
    static_cast<void>(source.release());  // adopted by the wrapper
    return input.release();               // adopted by the parser
  }
};

/// The parser's settings for one document. The handlers are taken off again at the end, since they live no longer.
class ParserSettings {
 public:
  explicit ParserSettings(xercesc::DOMLSParser& parser, FirstError& errors) : configuration_(*parser.getDomConfig()) {
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
    limits_.setEntityExpansionLimit(entityExpansionLimit);
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

xercesc::DOMDocument* loadDocumentFromFile(const wchar_t* path, xercesc::DOMLSParser& parser) {
  const std::optional<FileContent> content = readFile(path);
  if (!content) return nullptr;

  FirstError errors;
  const ParserSettings settings(parser, errors);
  const UnicodeString systemId(path);
  xercesc::MemBufInputSource source(content->data(), content->size(), systemId.utf16());
  const xercesc::Wrapper4InputSource input(&source, false);
  xercesc::DOMDocument* document = parser.parse(&input);
  errors.throwIfAny(path);
  return document;
}

}  // namespace MXF::Tessel::XMLUtils
