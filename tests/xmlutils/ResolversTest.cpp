// Prefixes mean what the resolver says that a query is made with, at the time it is made.

#include "support/Comparison.h"

#include <XMLUtils/TextConversion.h>

#include <gtest/gtest.h>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/util/XMLString.hpp>

namespace MXF::Tessel::Test {
namespace {

using xercesc::DOMXPathNSResolver;

const std::string document =
    "<r xmlns='urn:d' xmlns:p='urn:p'><p:a/><a xmlns='urn:q'/><a/><a xmlns='' xmlns:p='urn:q'><p:a/></a></r>";

/// A resolver that no document made.
class OneBinding : public DOMXPathNSResolver {
 public:
  explicit OneBinding(const XMLCh* uri) : uri_(uri) {}

  const XMLCh* lookupNamespaceURI(const XMLCh* prefix) const override {
    return xercesc::XMLString::equals(prefix, u"p") ? uri_ : nullptr;
  }
  const XMLCh* lookupPrefix(const XMLCh* /*uri*/) const override { return nullptr; }
  void addNamespaceBinding(const XMLCh* /*prefix*/, const XMLCh* uri) override { uri_ = uri; }
  void release() override {}

 private:
  const XMLCh* uri_;
};

struct ReadDocument {
  explicit ReadDocument(Engine::Kind kind) : engine(kind), read(engine.read(document)) {}

  std::string places(const DOMXPathNSResolver* resolver, const std::string& query = "//p:a") {
    const LeaksOfXQilla guard;
    return answerOf([&] { return places(expressionOf(read, query, resolver)); });
  }
  std::string places(const Expression& expression) {
    const QueryResult result = evaluate(expression, &read, iterator);
    std::string list;
    while (result->iterateNext()) list += placeOf(result->getNodeValue()) + " ";
    return list;
  }

  Engine engine;
  xercesc::DOMDocument& read;
};

const std::string unbound = "XQillaException 51: No namespace for prefix 'p' [err:XPST0081] at :1:3";

TEST(Resolvers, AreAskedAnewForEveryExpression) {
  for (const Engine::Kind kind : Engine::kinds) {
    ReadDocument reading(kind);
    DOMXPathNSResolver* resolver = reading.read.createNSResolver(reading.read.getDocumentElement());
    EXPECT_EQ(reading.places(resolver), "/0/0 ");
    const Expression before = expressionOf(reading.read, "//p:a", resolver);
    resolver->addNamespaceBinding(u"p", u"urn:q");
    EXPECT_EQ(reading.places(resolver), "/0/1 /0/3/0 ");
    EXPECT_EQ(reading.places(before), "/0/0 ");  // it was read under the earlier binding
    resolver->addNamespaceBinding(u"p", u"");
    EXPECT_EQ(reading.places(resolver), unbound);
    resolver->addNamespaceBinding(u"p", u"urn:d");
    EXPECT_EQ(reading.places(resolver), "/0/2 ");
    EXPECT_EQ(reading.places(before), "/0/0 ");
    EXPECT_EQ(reading.places(nullptr), unbound);
    EXPECT_EQ(reading.places(reading.read.createNSResolver(reading.read.getDocumentElement())), "/0/0 ");
  }
}

TEST(Resolvers, NeedNotComeFromADocument) {
  for (const Engine::Kind kind : Engine::kinds) {
    ReadDocument reading(kind);
    OneBinding resolver(u"urn:p");
    EXPECT_EQ(reading.places(&resolver), "/0/0 ");
    resolver.addNamespaceBinding(nullptr, u"urn:q");  // changes, and nothing tells
    EXPECT_EQ(reading.places(&resolver), "/0/1 /0/3/0 ");
    resolver.addNamespaceBinding(nullptr, nullptr);
    EXPECT_EQ(reading.places(&resolver), unbound);
  }
}

TEST(Resolvers, OfOtherDocumentsAndInnerNodesServe) {
  for (const Engine::Kind kind : Engine::kinds) {
    ReadDocument reading(kind);
    Engine other(kind);
    xercesc::DOMDocument& elsewhere = other.read("<r xmlns:p='urn:q'/>");
    EXPECT_EQ(reading.places(elsewhere.createNSResolver(elsewhere.getDocumentElement())), "/0/1 /0/3/0 ");
    EXPECT_EQ(reading.places(reading.read.createNSResolver(reading.read.getDocumentElement()->getLastChild())),
              "/0/1 /0/3/0 ");
  }
}

TEST(Resolvers, LeaveNamesWithoutPrefixInNoNamespaceUnlessOneIsGivenThem) {
  for (const Engine::Kind kind : Engine::kinds) {
    ReadDocument reading(kind);
    const Bindings given{Bindings::From::Root, {{"", "urn:q"}}};
    for (const DOMXPathNSResolver* plain :
         {Bindings{Bindings::From::Nothing, {}}.on(reading.read),
          Bindings{Bindings::From::NullNode, {}}.on(reading.read), Bindings().on(reading.read)}) {
      EXPECT_EQ(reading.places(plain, "//a"), "/0/3 ");
      EXPECT_EQ(reading.places(given.on(reading.read), "//a"), "/0/1 /0/3/0 ");
    }
  }
}

TEST(Resolvers, AnswerLookUpsAlike) {
  ReadDocument own(Engine::Kind::Own);
  ReadDocument stock(Engine::Kind::Stock);
  for (const Bindings& bindings : {Bindings(), Bindings{Bindings::From::NullNode, {{"p", "urn:z"}, {"n", "urn:p"}}},
                                   Bindings{Bindings::From::Root, {{"p", ""}, {"", "urn:z"}, {"xml", "urn:z"}}}}) {
    const DOMXPathNSResolver& ours = *bindings.on(own.read);
    const DOMXPathNSResolver& theirs = *bindings.on(stock.read);
    for (const XMLCh* name : {u"", u"p", u"n", u"none", u"xml", u"xmlns", u"urn:d", u"urn:p", u"urn:z"}) {
      EXPECT_EQ(utf8(ours.lookupNamespaceURI(name)), utf8(theirs.lookupNamespaceURI(name))) << utf8(name);
      EXPECT_EQ(utf8(ours.lookupPrefix(name)), utf8(theirs.lookupPrefix(name))) << utf8(name);
    }
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
