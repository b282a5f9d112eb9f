// The exported class: which flavour it is in, what it refuses when, and what assignment copies.

#include "support/Loading.h"

#include <Exceptions/BaseException.h>

#include <gtest/gtest.h>

#include <cstddef>

namespace MXF::Tessel::Test {
namespace {

using MetaMetadata::Loading::XSDDictionaryLoader2;

const std::string urnMultiplex = "urn:SMPTE:S377M";
const std::string registryMultiplex = "http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004";
const std::string refused =
    "OperationNotAllowed (42): loadMultiplex must be called prior to loadDictionary or loadScheme";
const std::string unknownNamespace = "InvalidValue (16): Unknown targetNamespace in multiplex file.";

std::string multiplexOutcome(LoadSession& session, const std::string& rootAttributes) {
  const std::string path = session.folder.write("other-multiplex.xsd", "<schema " + rootAttributes + "/>");
  return outcomeOf([&] { session.loader.loadMultiplex(wide(path)); });
}
std::string flavourOf(const XSDDictionaryLoader2& loader) {
  return narrow(loader.getTargetNamespace());
}

TEST(Facade, TheMultiplexNamespaceDecidesTheFlavourAndAnyOtherLeavesIt) {
  const struct {
    std::string rootAttributes;
    std::string outcome;
    std::string fromUrn;
    std::string fromRegistry;
  } cases[] = {
      {"targetNamespace='" + urnMultiplex + "'", "ok", urnMultiplex, urnMultiplex},
      {"targetNamespace='" + registryMultiplex + "'", "ok", registryMultiplex, registryMultiplex},
      {"xmlns:p='p' p:targetNamespace='" + registryMultiplex + "'", "ok", registryMultiplex, registryMultiplex},
      {"targetNamespace='x' xmlns:p='p' p:targetNamespace='" + urnMultiplex + "'", "ok", urnMultiplex, urnMultiplex},
      {"targetNamespace='" + urnMultiplex + "/'", unknownNamespace, urnMultiplex, registryMultiplex},
      {"targetNamespace='" + registryMultiplex + "/'", unknownNamespace, urnMultiplex, registryMultiplex},
      {"targetNamespace='urn:smpte:S377M'", unknownNamespace, urnMultiplex, registryMultiplex},
      {"targetNamespace=''", unknownNamespace, urnMultiplex, registryMultiplex},
      {"TargetNamespace='" + urnMultiplex + "'", unknownNamespace, urnMultiplex, registryMultiplex},
      {"", unknownNamespace, urnMultiplex, registryMultiplex},
  };
  for (const auto& [rootAttributes, outcome, fromUrn, fromRegistry] : cases) {
    LoadSession urn;
    EXPECT_EQ(flavourOf(urn.loader), urnMultiplex);
    EXPECT_EQ(multiplexOutcome(urn, rootAttributes), outcome) << rootAttributes;
    EXPECT_EQ(flavourOf(urn.loader), fromUrn) << rootAttributes;
    LoadSession registry(SchemaFlavour::RegistryUri);
    EXPECT_EQ(multiplexOutcome(registry, rootAttributes), outcome) << rootAttributes;
    EXPECT_EQ(flavourOf(registry.loader), fromRegistry) << rootAttributes;
  }
}

TEST(Facade, EveryFirstLoadFixesTheFlavourEvenOneThatFails) {
  const std::string urnElement = SchemaBuilder(SchemaFlavour::Urn).add(element("A", 1, "Int8")).text();
  using Load = std::string (LoadSession::*)(const std::string&);
  for (const Load load : {&LoadSession::loadDictionaryFile, &LoadSession::loadSchemeFile}) {
    for (const char* text : {"<empty xmlns:xs='http://www.w3.org/2001/XMLSchema'/>", "<malformed"}) {
      for (const SchemaFlavour flavour : {SchemaFlavour::Urn, SchemaFlavour::RegistryUri}) {
        LoadSession session(flavour);
        const std::string before = flavourOf(session.loader);
        (session.*load)(session.folder.write("first.xsd", text));
        for (const std::string& uri : {urnMultiplex, registryMultiplex}) {
          EXPECT_EQ(multiplexOutcome(session, "targetNamespace='" + uri + "'"), refused) << text;
        }
        EXPECT_EQ(flavourOf(session.loader), before);
        // The queries are those of the flavour: the URN flavour's annotations are found by it alone.
        EXPECT_EQ(session.loadDictionaryFile(session.folder.write("urn.xsd", urnElement)), "ok");
        EXPECT_EQ(dump(session.dictionary, Properties::LeftOut),
                  flavour == SchemaFlavour::Urn ? "L01 MetaSimpleElement 8\n" : "");
      }
    }
  }
}

TEST(Facade, AnOptionHoldsFromTheLoadAfterItWasSet) {
  LoadSession session;
  const auto declaration = [](const std::string& name, int number) {
    return element(name, number, "Int8").documentation("What it is").note("D:Length", "1 byte");
  };
  const auto load = [&](const std::string& name, int number) {
    return session.loadDictionary(SchemaBuilder().add(declaration(name, number)));
  };
  EXPECT_EQ(load("A", 1), "ok");
  session.loader.loadMetaElementDocumentation(true);
  EXPECT_EQ(load("B", 2), "ok");
  session.loader.loadMetaElementLengthDescription(true);
  EXPECT_EQ(session.loadDictionary(SchemaBuilder().add("<malformed")).substr(0, 10), "ParseError");
  EXPECT_EQ(load("C", 3), "ok");
  session.loader.loadMetaElementDocumentation(false);
  EXPECT_EQ(load("D", 4), "ok");
  EXPECT_EQ(dump(session.dictionary),
            "L01 MetaSimpleElement 8 XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; XMLTagName=A; name=A name\n"
            "L02 MetaSimpleElement 8 Documentation=What it is; XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; "
            "XMLTagName=B; name=B name\n"
            "L03 MetaSimpleElement 8 Documentation=What it is; LengthDescription=1 byte; XMLDefaultPrefix=t; "
            "XMLNamespaceURI=urn:t; XMLTagName=C; name=C name\n"
            "L04 MetaSimpleElement 8 LengthDescription=1 byte; XMLDefaultPrefix=t; XMLNamespaceURI=urn:t; "
            "XMLTagName=D; name=D name\n");
}

TEST(Facade, AssignmentCopiesFlavourQueriesOptionsAndPrefixes) {
  const SchemaBuilder withPrefix = SchemaBuilder(SchemaFlavour::RegistryUri).add(element("A", 1, "Int8"));
  // Its own namespace has no prefix here: only a record of one from an earlier load helps.
  SchemaBuilder withoutPrefix(SchemaFlavour::RegistryUri);
  withoutPrefix.drop("xmlns:t")
      .set("xmlns", "urn:t")
      .add(element("A", 1, "Int8").documentation("What it is").note("D:Length", "1 byte"));
  const SchemaBuilder abstractGroup = SchemaBuilder(SchemaFlavour::RegistryUri)
                                          .add(group("G", 1).set("abstract", "true").documentation("A set"))
                                          .add(complexType("GType", property("t:A")));
  LoadSession target;
  {
    LoadSession source(SchemaFlavour::RegistryUri);
    EXPECT_EQ(source.loadDictionary(withPrefix), "ok");
    source.loader.loadMetaElementDocumentation(true);
    source.loader.loadMetaElementLengthDescription(true);
    source.loader.loadAbstractGroups(true);
    target.loader = source.loader;
    XSDDictionaryLoader2& itself = source.loader;
    source.loader = itself;
    EXPECT_EQ(flavourOf(source.loader), registryMultiplex);
    EXPECT_EQ(source.loadScheme(abstractGroup), "ok");
  }
  EXPECT_EQ(flavourOf(target.loader), registryMultiplex);
  EXPECT_EQ(multiplexOutcome(target, "targetNamespace='" + urnMultiplex + "'"), refused);
  EXPECT_EQ(target.dictionaryAfter(withoutPrefix),
            "L01 MetaSimpleElement 8 Documentation=What it is; LengthDescription=1 byte; XMLDefaultPrefix=t; "
            "XMLNamespaceURI=urn:t; XMLTagName=A; name=A name\n");
  EXPECT_EQ(target.loadScheme(abstractGroup), "ok");
  EXPECT_NE(dump(target.dictionary).find("K01 Documentation=A set;"), std::string::npos) << dump(target.dictionary);

  target.loader = XSDDictionaryLoader2();  // a fresh one takes a multiplex schema again, and has no prefix
  EXPECT_EQ(multiplexOutcome(target, "targetNamespace='" + registryMultiplex + "'"), "ok");
  EXPECT_EQ(target.loadDictionary(withoutPrefix),
            "InvalidMetaElementDeclaration (20): No default prefix defined for namespace: urn:t");
}

TEST(Facade, EveryThrowSiteNamesItsSource) {
  LoadSession session;
  const std::string missing = session.folder.path("none.xsd");
  const auto labelled = [&](const std::string& text) {
    return session.folder.write("x.xsd", SchemaBuilder().add(element("A", 1).note("D:ElementUL", text)).text());
  };
  const std::string unbound =
      session.folder.write("unbound.xsd", "<schema xmlns='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:t'/>");
  const struct {
    std::function<void()> action;
    std::string source;
  } cases[] = {
      {[&] { session.loader.loadMultiplex(wide(missing)); }, "XSDDictionaryLoader2"},
      {[&] { session.loader.loadDictionary(wide(missing), session.dictionary); }, "XSDLoaderImpl"},
      {[&] { session.loader.loadScheme(wide(missing), session.dictionary); }, "XSDLoaderImpl"},
      {[&] { session.loader.loadDictionary(wide(labelled("")), session.dictionary); }, "XSDLoaderImpl"},
      {[&] { session.loader.loadDictionary(wide(labelled("short")), session.dictionary); }, "Utils"},
      {[&] { session.loader.loadDictionary(wide(unbound), session.dictionary); }, "Utils"},
      {[&] { session.loader.loadMultiplex(wide(missing)); }, "XSDDictionaryLoader2"},
  };
  for (const auto& [action, source] : cases) {
    try {
      action();
      ADD_FAILURE() << source;
    } catch (const Exceptions::BaseException& e) {
      const std::string declaration =
          e.location().isKnown() ? " (declared at " + narrow(e.location().toString()) + ")" : "";
      const std::string start = narrow(e.message()) + declaration + " [" + source + ":";
      EXPECT_EQ(narrow(e.what()).substr(0, start.size()), start);
    }
  }
}

TEST(Facade, LoadersLiveOnTheHeapInArraysAndInGivenMemory) {
  delete new XSDDictionaryLoader2;
  delete[] new XSDDictionaryLoader2[2];
  alignas(XSDDictionaryLoader2) std::byte memory[sizeof(XSDDictionaryLoader2)];
  auto* placed = new (memory) XSDDictionaryLoader2;
  EXPECT_EQ(static_cast<void*>(placed), memory);
  placed->~XSDDictionaryLoader2();
}

}  // namespace
}  // namespace MXF::Tessel::Test
