// What the public headers promise about threads: loaders of their own on several threads at once, and one finished
// dictionary that all of them read. Run under the thread sanitizer, these tests find what is shared.

#include "loader/support/Loading.h"

#include <DataIO/DataSink.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace MXF::Tessel::Test {
namespace {

constexpr std::size_t threadCount = 8;
constexpr int rounds = 2;

/// Runs the work on eight threads, which all wait until the last one is there.
/// @return what each of them gives.
std::array<std::string, threadCount> onEightThreads(const std::function<std::string(std::size_t)>& work) {
  std::array<std::string, threadCount> results;
  std::atomic<std::size_t> waiting{threadCount};
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < threadCount; ++i) {
    threads.emplace_back([&, i] {
      --waiting;
      while (waiting != 0) std::this_thread::yield();
      results[i] = work(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
  return results;
}

/// Loads the shipped schemas and, between them, files that fail in the parser, in a query and in a pass.
/// @return the dictionary and the failures.
std::string loadAll(const char* flavour, const TemporaryFolder& faults) {
  LoadSession session;
  const auto path = [&](const char* file) { return std::string(TESSELMXF_SCHEMAS "/") + flavour + "/" + file; };
  session.loader.loadMultiplex(wide(path("multiplex.xsd")));
  session.loader.loadAbstractGroups(true);
  session.loader.loadMetaElementDocumentation(true);
  session.loader.loadMetaElementLengthDescription(true);
  std::string outcomes = session.loadDictionaryFile(faults.path("malformed.xsd")) + "\n";
  outcomes += session.loadDictionaryFile(path("dictionary.xsd")) + "\n";
  outcomes += session.loadSchemeFile(faults.path("unbound.xsd")) + "\n";
  outcomes += session.loadSchemeFile(path("groups.xsd")) + "\n";
  outcomes += session.loadSchemeFile(path("descriptive.xsd")) + "\n";
  outcomes += session.loadDictionaryFile(path("dictionary.xsd")) + "\n";
  return outcomes + dump(session.dictionary);
}

void writeFaults(const TemporaryFolder& folder) {
  folder.write("malformed.xsd", "<xs:schema");
  folder.write("unbound.xsd", R"(<s:schema xmlns:s="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:x"/>)");
}

TEST(Threads, EightLoadersGiveEqualDictionaries) {
  const TemporaryFolder faults;
  writeFaults(faults);
  // No load before: the threads also meet in making the XML libraries ready.
  const auto flavourOf = [](std::size_t thread) { return thread % 2 == 0 ? "registry" : "urn"; };
  const auto results = onEightThreads([&](std::size_t thread) {
    std::string first = loadAll(flavourOf(thread), faults);
    for (int round = 1; round < rounds; ++round) {
      if (loadAll(flavourOf(thread), faults) != first) return std::string("differs from round to round");
    }
    return first;
  });
  const std::string expected = loadAll("registry", faults);
  EXPECT_NE(expected.find("ParseError (33): " + faults.path("malformed.xsd") + ":1:"), std::string::npos)
      << expected.substr(0, 500);
  for (const std::string& result : results) EXPECT_TRUE(result == expected) << result.substr(0, 500);
}

/// What dump() does not ask: every look-up, by label, key and property, and copies that share their attributes.
std::string lookUpAll(const MetaMetadata::Dictionary& dictionary) {
  constexpr auto textForm = Types::StringRepresentationEncodingType::DottedHex;
  std::string found;
  DataIO::BufferSink values;
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    const MetaMetadata::MetaElement* element = dictionary.findMetaElement(entry->first);
    found += narrow(element->getProperty(MetaMetadata::PropertyKeys::xmlTagName)) + ":";
    found += outcomeOf([&] { element->getProperty(L"none"); });
    MetaMetadata::Visitors::GetMetaElementVisitor<MetaMetadata::MetaSimpleElement> simple;
    element->accept(simple);
    found += simple.get() == nullptr ? "-" : "simple";
    for (const Types::LocalTag& tag : dictionary.localTagsOf(entry->first)) found += narrow(tag.toString(textForm));
  }
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    const MetaMetadata::MetaMetadataSet copy = *dictionary.findMetaMetadataSet(entry->first);
    found += narrow(copy.key().toString(textForm));
    for (const MetaMetadata::MetaMetadataSet::Attribute& attribute : copy.metaAttributes()) {
      if (attribute->distinguishedValue() != nullptr) attribute->distinguishedValue()->serialize(values);
    }
  }
  return found.append(values.bytes().begin(), values.bytes().end());
}

TEST(Threads, EightThreadsReadOneDictionary) {
  LoadSession session(SchemaFlavour::RegistryUri);
  const std::string folder = TESSELMXF_SCHEMAS "/registry/";
  ASSERT_EQ(session.loadDictionaryFile(folder + "dictionary.xsd"), "ok");
  ASSERT_EQ(session.loadSchemeFile(folder + "groups.xsd"), "ok");
  const MetaMetadata::Dictionary& dictionary = session.dictionary;

  const auto results = onEightThreads([&](std::size_t /*thread*/) {
    std::string text;
    for (int round = 0; round < rounds; ++round) text = dump(dictionary) + lookUpAll(dictionary);
    return text;
  });
  const std::string expected = dump(dictionary) + lookUpAll(dictionary);
  for (const std::string& result : results) EXPECT_TRUE(result == expected) << result.substr(0, 500);
}

}  // namespace
}  // namespace MXF::Tessel::Test
