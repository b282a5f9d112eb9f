// What becomes of the XML libraries' exceptions at the boundaries.

#include "MetaMetadata/XSDLoaderImpl/ErrorTranslation.h"
#include "support/Loading.h"

#include <Utils/TextConversion.h>
#include <XMLUtils/Initializer.h>

#include <gtest/gtest.h>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/RuntimeException.hpp>

#include <new>
#include <stdexcept>

namespace MXF::Tessel::Test {
namespace {

using MetaMetadata::Loading::translatingSaxErrors;
using MetaMetadata::Loading::translatingXmlErrors;

template <class E>
std::function<void()> throwing(const E& exception) {
  return [exception] { throw exception; };  // NOLINT(cert-err60-cpp): the libraries' classes are as they are
}

struct Boundary {
  std::function<void()> fault;
  std::string atDocument;  ///< What leaves the loading of a document.
  std::string atPass;      ///< What leaves the dictionary pass.
};

TEST(ErrorTranslation, EachBoundaryTakesItsClassesAndLetsTheOthersPass) {
  XMLUtils::Initializer::instance();
  const xercesc::UTFDataFormatException utf("x.cpp", 1, xercesc::XMLExcepts::UTF8_FormatError, u"2", u"80", u"2");
  const xercesc::RuntimeException xml("x.cpp", 1, xercesc::XMLExcepts::Array_BadIndex, u"7", u"3");
  const xercesc::DOMException dom(xercesc::DOMException::NOT_FOUND_ERR, 0);
  const std::string domText = "attempt is made to reference a node in a context where it does not exist";
  const std::string utfText = "invalid byte '80' at position 2 of a 2-byte sequence";
  const std::string xmlText = "index is beyond array bounds";
  const Boundary cases[] = {
      {throwing(XQillaException(51, u"T \u00E9")), "XQillaException: T é", "ParseError (33): XQillaException:: T é"},
      {throwing(XQException(u"T", nullptr, 0U, 0U, "x.cpp", 1U)), "XQException: T", "ParseError (33): XQException:: T"},
      {throwing(dom), "DOMException: " + domText, "ParseError (33): DOMException:: " + domText + "(8)"},
      {throwing(utf), "UTFDataFormatException: " + utfText,
       "ParseError (33): xercesc_3_2::UTFDataFormatException: " + utfText},
      {throwing(xercesc::SAXException(u"T")), "ParseError (33): T", "ParseError (33): xercesc_3_2::SAXException: T"},
      {throwing(xercesc::SAXParseException(u"T", u"p", u"s", 2, 3)), "ParseError (33): T",
       "ParseError (33): xercesc_3_2::SAXException: T"},
      {throwing(xml), "RuntimeException: " + xmlText, "ParseError (33): xercesc_3_2::XMLException: " + xmlText},
      {throwing(Exceptions::NotFound(L"T", "x", 1)), "NotFound (31): T", "NotFound (31): T"},
      {throwing(std::bad_alloc()), "bad_alloc: std::bad_alloc", "ParseError (33): Unknown error in Xerces or XQilla"},
      {throwing(std::runtime_error("T")), "runtime_error: T", "ParseError (33): Unknown error in Xerces or XQilla"},
  };
  for (const auto& [fault, atDocument, atPass] : cases) {
    EXPECT_EQ(outcomeOf([&, action = fault] { translatingSaxErrors("x", 1, action); }), atDocument);
    EXPECT_EQ(outcomeOf([&, action = fault] { translatingXmlErrors(action); }), atPass);
  }
  try {
    translatingSaxErrors("Caller", 7, throwing(xercesc::SAXException(u"T")));
    ADD_FAILURE();
  } catch (const Exceptions::ParseError& e) {
    EXPECT_EQ(narrow(e.what()), "T [Caller:7]");
  }
  EXPECT_EQ(outcomeOf([] { translatingXmlErrors([] { throw 1; }); }),
            "ParseError (33): Unknown error in Xerces or XQilla");
}

}  // namespace
}  // namespace MXF::Tessel::Test
