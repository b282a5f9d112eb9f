#include "loading/SchemaDocument.h"

#include "loading/Failure.h"

#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/Initializer.h>

#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMLSParser.hpp>

#include <memory>

namespace MXF::Tessel::Tool {

namespace {

struct ParserRelease {
  void operator()(xercesc::DOMLSParser* parser) const { parser->release(); }
};

}  // namespace

void lookInto(const Templates::WideString& path, const std::function<void(const xercesc::DOMDocument&)>& action) {
  static_cast<void>(failureOf([&] {
    xercesc::DOMImplementation& implementation = XMLUtils::Initializer::instance().domImplementation();
    const std::unique_ptr<xercesc::DOMLSParser, ParserRelease> parser(
        implementation.createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
    const xercesc::DOMDocument* document = XMLUtils::loadDocumentFromFile(path.c_str(), *parser);
    if (document != nullptr) action(*document);
  }));
}

}  // namespace MXF::Tessel::Tool
