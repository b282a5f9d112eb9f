// Chains of base types: long ones, circular ones, and look-ups that cost more than they seem to.

#include "loader/support/Loading.h"
#include "support/HostileLoad.h"

#include <gtest/gtest.h>

#include <functional>

namespace MXF::Tessel::Test {
namespace {

using Name = std::function<std::string(std::size_t)>;

std::string numberedName(std::size_t i) {
  return numbered("T", i);
}

/// Types that each extend the next, the last none or, in a circle, the first.
std::string chainOf(std::size_t count, bool isCircle = false, const Name& name = numberedName,
                    const std::string& content = "") {
  return repeated(count, [&](std::size_t i) {
    const bool isLast = i + 1 == count && !isCircle;
    return complexType(name(i), content, isLast ? "" : "t:" + name((i + 1) % count));
  });
}
/// A group of a type, one of many: keys beyond those of key().
std::string groupOf(std::size_t number, const std::string& type) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string text = replaced(key(0), "0D.01.01.01.01.01.00.00", "0D.01.01.01.01");
  for (unsigned int shift = 0; shift < 24; shift += 8) {
    text += {'.', digits[number >> (shift + 4) & 0xFU], digits[number >> shift & 0xFU]};
  }
  return group(numbered("G", number), 0).set("type", type).note("G:Key", text);
}
std::string groupsOf(std::size_t count, const Name& type) {
  return repeated(count, [&](std::size_t i) { return groupOf(i, "t:" + type(i)); });
}
std::string schemeHolding(const std::string& content, const std::string& prolog = "") {
  return SchemaBuilder().prolog(prolog).add(content).text();
}

TEST(Types, InChainsAndCirclesOfAnyLength) {
  const std::string first = group("G", 1).set("type", "t:T0");
  expectOutcome("100,000 types", Load::Scheme, schemeHolding(chainOf(100'000) + first), "K01\n");
  for (const std::size_t length : {1U, 2U, 3U, 1'000U, 100'000U}) {
    expectOutcome(numbered("circle of ", length), Load::Scheme, schemeHolding(chainOf(length, true) + first),
                  dataMissing("Type t:T0 is its own base type"));
    expectOutcome(
        numbered("way into a circle of ", length), Load::Scheme,
        schemeHolding(chainOf(length, true) + complexType("In", "", "t:T0") + group("G", 1).set("type", "t:In")),
        dataMissing("Type t:T0 is its own base type"));
  }
}

TEST(Types, AreLimitedInLookUpsOfALoad) {
  const auto shared = [](std::size_t groups) {
    return schemeHolding(chainOf(2'000) + groupsOf(groups, [](std::size_t) { return "T0"; }));
  };
  expectOutcome("at the limit", Load::Scheme, shared(1'000), "5 elements, 1000 sets, 0 attributes");
  expectOutcome("one more chain", Load::Scheme, shared(1'001), loadLimitExceeded("2000000 look-ups of types"));
}

TEST(Types, AreLimitedInAttributesOfALoad) {
  const Budget large{std::size_t{2} << 30U};
  const auto extending = [](std::size_t count) {
    return schemeHolding(chainOf(count, false, numberedName, property("t:A")) + groupsOf(count, numberedName));
  };
  // The sum of 1 to n.
  expectOutcome("below the limit", Load::Scheme, extending(999), "5 elements, 999 sets, 499500 attributes", large);
  expectOutcome("above", Load::Scheme, extending(1'000), loadLimitExceeded("500000 attributes of sets"), large);
  const auto sharing = [](std::size_t last) {
    return schemeHolding(complexType("T", times(5'000, property("t:A"))) +
                         complexType("Last", times(last, property("t:A"))) +
                         groupsOf(99, [](std::size_t) { return "T"; }) + groupOf(99, "t:Last"));
  };
  expectOutcome("at the limit", Load::Scheme, sharing(5'000), "5 elements, 100 sets, 500000 attributes", large);
  expectOutcome("one more", Load::Scheme, sharing(5'001), loadLimitExceeded("500000 attributes of sets"), large);
}

TEST(Types, OfNamesThatCostMoreToLookUp) {
  const std::string typedNames = "<!DOCTYPE xs:schema [<!ATTLIST xs:complexType name NMTOKEN #IMPLIED>]>";
  const std::string first = group("G", 1).set("type", "t:T0");
  expectOutcome("typed by the document type", Load::Scheme, schemeHolding(chainOf(1'000) + first, typedNames), "K01\n");
  expectOutcome("100,000 of them", Load::Scheme, schemeHolding(chainOf(100'000) + first, typedNames), "K01\n");

  const std::string longName(10'000'000, 'x');
  const std::string derivedFromLong = complexType("T0", "", "t:" + longName) + complexType(longName, "");
  expectOutcome("10,000,000 characters", Load::Scheme, schemeHolding(derivedFromLong + first), "K01\n");
  expectOutcome("which 20,000 groups extend", Load::Scheme,
                schemeHolding(derivedFromLong + groupsOf(20'000, [](std::size_t) { return "T0"; })),
                loadLimitExceeded("50000000 characters of repeated texts"));
}

TEST(Types, WithImportsThatCostMoreToLookUp) {
  const auto load = [](const std::string& namespaceUri, const std::string& imports, std::size_t groups,
                       const SchemaBuilder& base) {
    HostileFiles files;
    files.write("a.xsd", base.text());
    files.write("hostile.xsd", SchemaBuilder()
                                   .set("xmlns:b", namespaceUri)
                                   .add(imports)
                                   .add(complexType("T0", "", "b:Base"))
                                   .add(groupsOf(groups, [](std::size_t) { return "T0"; }))
                                   .text());
    return files.outcome(Load::Scheme, "hostile.xsd");
  };
  const SchemaBuilder base = SchemaBuilder().add(complexType("Base", ""));
  const std::string longUri(4'096, 'u');
  EXPECT_EQ(load(longUri, import(longUri, "a.xsd"), 1, base), key(0).substr(0, 24) + "0D.01.01.01.01.00.00.00\n");
  EXPECT_EQ(load(longUri, import(longUri, "a.xsd"), 20'000, base),
            loadLimitExceeded("50000000 characters of repeated texts"));
  // The first location has the type; under another namespace than it says, so that it is asked again for every group.
  const std::string others =
      repeated(5, [](std::size_t i) { return import("urn:b", numbered("b", i) + std::string(2'000'000, 'b')); });
  EXPECT_EQ(load("urn:b", import("urn:b", "a.xsd") + others, 20'000, base), "5 elements, 20000 sets, 0 attributes");
}

TEST(Types, ThatManyImportsDeriveFromAreReadOnce) {
  constexpr std::size_t count = 900;
  HostileFiles files;
  const std::string large = complexType("Root", times(1'000'000, "<a/>"));
  files.write("root.xsd", SchemaBuilder().target("urn:root").add(large).text());
  SchemaBuilder scheme = SchemaBuilder().set("xmlns:r", "urn:root").add(import("urn:root", "root.xsd"));
  scheme.add(complexType("First", "", "r:Root") + groupOf(count, "t:First"));
  for (std::size_t i = 0; i < count; ++i) {
    const std::string uri = numbered("urn:", i);
    const std::string file = numbered("", i) + ".xsd";
    const std::string base = complexType("Base", "", "r:Root");
    files.write(file, SchemaBuilder().target(uri).set("xmlns:r", "urn:root").add(base).text());
    scheme.set(numbered("xmlns:p", i), uri).add(import(uri, file));
    scheme.add(complexType(numbered("T", i), "", numbered("p", i) + ":Base"));
  }
  files.write("hostile.xsd", scheme.add(groupsOf(count, numberedName)).text());
  EXPECT_EQ(files.outcome(Load::Scheme, "hostile.xsd", {std::size_t{1} << 30U, 20}),
            "5 elements, 901 sets, 0 attributes");
}

}  // namespace
}  // namespace MXF::Tessel::Test
