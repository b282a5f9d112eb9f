// Prints the name of a document's root element, found by a query.
#include <Utils/TextConversion.h>
#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/Initializer.h>
#include <XMLUtils/Released.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMImplementationLS.hpp>
#include <xercesc/dom/DOMXPathExpression.hpp>
#include <xercesc/dom/DOMXPathResult.hpp>
#include <xercesc/util/XercesDefs.hpp>

#include <iostream>

using namespace MXF::Tessel;
using xercesc::DOMXPathResult;

int main(int argc, char* argv[]) {
  if (argc != 2) return 2;
  const XMLUtils::Released<xercesc::DOMLSParser> parser(
      XMLUtils::Initializer::instance().domImplementation().createLSParser(
          xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr));
  xercesc::DOMDocument* document = XMLUtils::loadDocumentFromFile(Utils::stringToWstring(argv[1]).c_str(), *parser);
  if (document == nullptr) return 1;
  const XMLUtils::Released<xercesc::DOMXPathExpression> query(document->createExpression(u"*", nullptr));
  const XMLUtils::Released<DOMXPathResult> result(
      query->evaluate(document, DOMXPathResult::FIRST_RESULT_TYPE, nullptr));
  std::cout << Utils::wstringToString(XMLUtils::toWstring(result->getNodeValue()->getNodeName()).c_str()) << '\n';
}
