#include "loading/SchemaDocument.h"

#include "loading/Failure.h"

#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/Initializer.h>
#include <XMLUtils/Released.h>

#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMLSParser.hpp>

namespace MXF::Tessel::Tool {

void lookInto(const Templates::WideString& path, const std::function<void(const xercesc::DOMDocument&)>& action) {
  static_cast<void>(failureOf([&] {
    xercesc::DOMImplementation& implementation = XMLUtils::Initializer::instance().domImplementation();
    const XMLUtils::Released<xercesc::DOMLSParser> parser(
        implementation.createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
    const xercesc::DOMDocument* document = XMLUtils::loadDocumentFromFile(path.c_str(), *parser);
    if (document != nullptr) action(*document);
  }));
}

}  // namespace MXF::Tessel::Tool
