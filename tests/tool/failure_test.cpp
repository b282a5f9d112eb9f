// The names that exceptions get, by which users and programs tell failures apart.

#include "loading/Failure.h"

#include <Exceptions/Exceptions.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/Initializer.h>

#include <gtest/gtest.h>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMLSException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/RuntimeException.hpp>
#include <xercesc/util/UTFDataFormatException.hpp>
#include <xercesc/util/XMLDOMMsg.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>
#include <xqilla/exceptions/XQException.hpp>
#include <xqilla/exceptions/XQillaException.hpp>

#include <functional>
#include <new>
#include <stdexcept>

namespace MXF::Tessel::Tool {
namespace {

struct FailureCase {
  const char* className;
  std::optional<int> code;
  std::function<void()> action;
};

constexpr XMLCh thrownText[] = {u'c', u'a', u'f', u'\u00e9', 0};

const FailureCase cases[] = {
    {"InvalidValue", 16, [] { throw Exceptions::InvalidValue(L"caf\u00e9", "File", 1); }},
    {"TypeNotSupportedException", 47, [] { throw Exceptions::TypeNotSupportedException(L"caf\u00e9", "File", 1); }},
    {"XQillaException", std::nullopt, [] { throw XQillaException(51, thrownText); }},
    {"XQException", std::nullopt, [] { throw XQException(thrownText, thrownText, 1U, 1U, __FILE__, __LINE__); }},
    {"SAXParseException", std::nullopt,
     [] { throw xercesc::SAXParseException(thrownText, thrownText, thrownText, 1, 2); }},
    {"SAXException", std::nullopt, [] { throw xercesc::SAXException(thrownText); }},
    {"bad_alloc", std::nullopt, [] { throw std::bad_alloc(); }},
    {"runtime_error", std::nullopt, [] { throw std::runtime_error("caf\u00e9"); }},
};

// These take their messages from the library's tables.
const FailureCase tableCases[] = {
    {"DOMException", std::nullopt, [] { throw xercesc::DOMException(xercesc::DOMException::NOT_FOUND_ERR); }},
    {"DOMException", std::nullopt,
     [] {
       throw xercesc::DOMLSException(xercesc::DOMLSException::PARSE_ERR, xercesc::XMLDOMMsg::Writer_NotRecognizedType,
                                     xercesc::XMLPlatformUtils::fgMemoryManager);
     }},
    {"UTFDataFormatException", std::nullopt,
     [] { throw xercesc::UTFDataFormatException(__FILE__, __LINE__, xercesc::XMLExcepts::UTF8_FormatError); }},
    {"XMLException", std::nullopt,
     [] { throw xercesc::RuntimeException(__FILE__, __LINE__, xercesc::XMLExcepts::Gen_UnexpectedEOF); }},
    {"OutOfMemoryException", std::nullopt, [] { throw xercesc::OutOfMemoryException(); }},
};

TEST(Failures, AreNamedByTheirClassWithoutNamespace) {
  XMLUtils::Initializer::instance();
  for (const FailureCase& row : cases) {
    SCOPED_TRACE(row.className);
    const std::optional<Failure> failure = failureOf(row.action);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->className, row.className);
    EXPECT_EQ(failure->code, row.code);
    EXPECT_TRUE(failure->message == L"caf\u00e9" || failure->message == L"std::bad_alloc");
  }
  for (const FailureCase& row : tableCases) {
    SCOPED_TRACE(row.className);
    const std::optional<Failure> failure = failureOf(row.action);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->className, row.className);
    EXPECT_FALSE(failure->code);
    EXPECT_FALSE(failure->message.empty());
  }
  EXPECT_FALSE(failureOf([] {}));
}

TEST(Failures, AreToldWithTheirPlaceOnce) {
  XMLUtils::Initializer::instance();
  const auto textOf = [](const std::function<void()>& action) {
    const Failure failure = *failureOf(action);
    return shownPlace(failure.place, "f.xsd") + ' ' +
           std::string(Utils::wstringToString(messageWithoutPlace(failure).c_str()).c_str());
  };
  const Utils::SourceLocation place(std::make_shared<const Templates::WideString>(L"a/././i.xsd"), 3, 4);
  EXPECT_EQ(textOf([&] {
              Exceptions::NotFound error(L"a: b", "File", 1);
              error.setDeclaration(place);
              throw error;
            }),
            "a/i.xsd:3:4 a: b");
  EXPECT_EQ(textOf([&] {
              Exceptions::ParseError error(L"a/././i.xsd:3:4: a", "File", 1);
              error.setLocation(place);
              throw error;
            }),
            "a/i.xsd:3:4 a");
  EXPECT_EQ(textOf([] { throw xercesc::SAXParseException(u"i.xsd:3:4: a", u"", u"i.xsd", 3, 4); }), "i.xsd:3:4 a");
  EXPECT_EQ(textOf([] { throw xercesc::SAXParseException(u"i.xsd:3:4: a", nullptr, nullptr, 0, 0); }),
            "f.xsd i.xsd:3:4: a");
}

}  // namespace
}  // namespace MXF::Tessel::Tool
