// Elements with their properties and visitors, sets with their attributes, and the dictionary that keeps both.

#include "support.h"

#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>
#include <MetaMetadata/Visitors/NullMetaElementVisitor.h>
#include <Types/Integers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace MXF::Tessel::MetaMetadata {
namespace {

using Templates::auto_ptr;
using Templates::WideString;
using Test::failureOf;
using Test::narrow;
using testing::ElementsAre;
using testing::Pair;
using Types::LocalTag;
using Types::UniversalLabel;
using Types::Identifiers::Identifier;
using Limits = MetaCollectionElement::CollectionSizeLimits;
using Status = AttributeRequiredStatus::Status;

static_assert(sizeof(Limits) <= 8, "the limits travel in one register");

constexpr auto form = Types::StringRepresentationEncodingType::DottedHex;

UniversalLabel label(unsigned char last) {
  KLV::Key::Bytes bytes = {0x06, 0x0E, 0x2B, 0x34};
  bytes.back() = last;
  return KLV::Key(bytes);
}
KLV::Key key(unsigned char last) {
  return label(last).key();
}

TEST(PropertyMap, TellsEmptyAbsentAndRewrittenPropertiesApart) {
  MetaSimpleElement element(label(1), Identifier::UInt8);
  element.addProperty(L"name", L"first");
  element.addProperty(L"empty", L"");
  element.addProperty(L"name", L"second");
  element.addProperty(L"copy", element.getProperty(L"name"));
  element.addProperty(L"copy", element.getProperty(L"copy") + 3);  // from its own buffer
  EXPECT_EQ(WideString(element.getProperty(L"empty")), L"");
  EXPECT_THAT(element.properties(),
              ElementsAre(Pair(WideString(L"copy"), WideString(L"ond")), Pair(WideString(L"empty"), WideString()),
                          Pair(WideString(L"name"), WideString(L"second"))));
  for (const wchar_t* absent : {L"Name", L"", L"nam"}) {
    EXPECT_EQ(failureOf([&] { element.getProperty(absent); }), "31 Property not found: " + narrow(absent));
  }
}

TEST(MetaElements, AssignmentThroughAnyBaseLeavesLabelTypesAndLimits) {
  MetaReferenceCollection target(label(1), {1, 2}, {key(9)}, Identifier::Batch, Identifier::StrongReference);
  MetaReferenceCollection source(label(2), Limits(), {key(7)}, Identifier::Array, Identifier::WeakReference);
  source.addProperty(L"name", L"source");
  const MetaSimpleElement plain(label(3), Identifier::UInt8);
  const auto forgetProperties = [&] {
    static_cast<PropertyMap&>(target) = static_cast<const PropertyMap&>(plain);
    EXPECT_TRUE(target.properties().empty());
  };
  static_cast<MetaReferenceHolder&>(target) = static_cast<const MetaReferenceHolder&>(source);
  EXPECT_THAT(target.allowedMetadataSets(), ElementsAre(key(7)));
  target.addProperty(L"mine", L"goes");
  static_cast<PropertyMap&>(target) = static_cast<const PropertyMap&>(source);
  EXPECT_EQ(target.properties(), source.properties());
  forgetProperties();
  static_cast<MetaElement&>(target) = static_cast<const MetaElement&>(source);
  EXPECT_EQ(target.properties(), source.properties());
  forgetProperties();
  static_cast<MetaCollectionElement&>(target) = static_cast<const MetaCollectionElement&>(source);
  EXPECT_EQ(target.properties(), source.properties());
  forgetProperties();
  source.addAllowedMetadataSet(key(1));
  source.addAllowedMetadataSet(key(7));
  target = source;
  const MetaReferenceCollection& same = target;
  target = same;
  EXPECT_EQ(target.properties(), source.properties());
  EXPECT_THAT(target.allowedMetadataSets(), ElementsAre(key(7), key(1), key(7)));  // as added, repetitions too

  EXPECT_EQ(target.universalLabel(), label(1));
  EXPECT_EQ(target.dataType(), Identifier::Batch);
  EXPECT_EQ(target.dataSubType(), Identifier::StrongReference);
  EXPECT_EQ(target.sizeLimits().minimum, 1U);
  EXPECT_EQ(target.sizeLimits().maximum, 2U);
}

template <class NullVisitor, class Collection, class References, class Values>
struct FacetRecorder : NullVisitor {
  using NullVisitor::visit;
  void visit(Collection& /*element*/) override { seen += "collection "; }
  void visit(References& /*facet*/) override { seen += "references "; }
  void visit(Values& /*facet*/) override { seen += "values "; }
  std::string seen;
};
using FacetLog = FacetRecorder<Visitors::NullMetaElementVisitor, const MetaCollectionElement, const MetaReferenceHolder,
                               const MetaValueHolder>;
using NonConstFacetLog = FacetRecorder<Visitors::NullNonConstMetaElementVisitor, MetaCollectionElement,
                                       MetaReferenceHolder, MetaValueHolder>;
using ConstRecorder =
    Test::OverloadRecorder<Visitors::MetaElementVisitor, const MetaCollectionElement, const MetaReferenceHolder,
                           const MetaValueHolder, const MetaReferenceCollection, const MetaReferenceElement,
                           const MetaCollection, const MetaSimpleElement>;
using NonConstRecorder = Test::OverloadRecorder<Visitors::NonConstMetaElementVisitor, MetaCollectionElement,
                                                MetaReferenceHolder, MetaValueHolder, MetaReferenceCollection,
                                                MetaReferenceElement, MetaCollection, MetaSimpleElement>;

template <class Visitor, class Element>
Visitor sent(Element& element) {
  Visitor visitor;
  element.accept(visitor);
  return visitor;
}

TEST(ElementVisitors, SeeTheConcreteClassThenItsFacetsInOrder) {
  MetaSimpleElement simple(label(1), Identifier::UInt8);
  MetaCollection collection(label(2), Limits(), Identifier::Array, Identifier::UInt8);
  MetaReferenceElement reference(label(3), {}, Identifier::StrongReference);
  MetaReferenceCollection references(label(4), Limits(), {}, Identifier::Batch, Identifier::WeakReference);
  const struct {
    MetaElement& element;
    std::string facets;
    const MetaCollectionElement* asCollection;
    MetaCollection* asValueCollection;
  } cases[] = {
      {simple, "", nullptr, nullptr},
      {collection, "values collection ", &collection, &collection},
      {reference, "references ", nullptr, nullptr},
      {references, "references collection ", &references, nullptr},
  };
  for (const auto& row : cases) {
    const MetaElement& readOnly = row.element;
    SCOPED_TRACE(typeid(readOnly).name());
    const auto reading = sent<ConstRecorder>(readOnly);
    const auto changing = sent<NonConstRecorder>(row.element);
    EXPECT_EQ(reading.calls, 1);
    EXPECT_EQ(changing.calls, 1);
    EXPECT_TRUE(*reading.called == typeid(readOnly));
    EXPECT_TRUE(*changing.called == typeid(readOnly));
    EXPECT_EQ(sent<FacetLog>(readOnly).seen, row.facets);
    EXPECT_EQ(sent<NonConstFacetLog>(row.element).seen, row.facets);
    EXPECT_EQ(sent<Visitors::GetMetaElementVisitor<MetaCollectionElement>>(readOnly).get(), row.asCollection);
    EXPECT_EQ(sent<Visitors::GetNonConstMetaElementVisitor<MetaCollection>>(row.element).get(), row.asValueCollection);
  }
}

template <class Base>
struct Counted : Base {
  template <class... Arguments>
  explicit Counted(int& deaths, Arguments&&... arguments)
      : Base(std::forward<Arguments>(arguments)...), tracked(deaths) {}
  using Base::operator=;
  Test::Tracked tracked;
};

TEST(MetaMetadataSet, SharesAttributesWithItsCopiesUntilTheLastIsGone) {
  int attributeDeaths = 0;
  int valueDeaths = 0;
  const MetaSimpleElement element(label(1), Identifier::UInt8);
  auto_ptr<MetaMetadataSet> set(new MetaMetadataSet(key(1)));
  {
    auto_ptr<LocalTag> tag(new LocalTag(L"3C0A", form));
    auto_ptr<const Types::BaseType> value(new Counted<Types::UInt8>(valueDeaths, static_cast<unsigned char>(7)));
    set->addMetaAttribute(MetaMetadataSet::Attribute(std::make_unique<Counted<MetaAttribute>>(
        attributeDeaths, element, Status::BestEffort, std::move(value), tag.get())));
    set->addMetaAttribute(
        MetaMetadataSet::Attribute(std::make_unique<MetaAttribute>(element, Status::Optional, nullptr, nullptr)));
  }
  set->addProperty(L"name", L"set");
  {
    const MetaMetadataSet copy(*set);
    set.reset();
    ASSERT_EQ(copy.metaAttributes().size(), 2U);
    const MetaAttribute& first = *copy.metaAttributes()[0];
    const MetaAttribute& second = *copy.metaAttributes()[1];
    EXPECT_EQ(&first.metaElement(), &element);
    EXPECT_EQ(first.requiredStatus(), Status::BestEffort);
    EXPECT_EQ(dynamic_cast<const Types::UInt8&>(*first.distinguishedValue()).value(), 7);
    EXPECT_EQ(narrow(first.localTag()->toString(form)), "3C.0A");  // a copy: the caller's tag is gone
    EXPECT_EQ(second.distinguishedValue(), nullptr);
    EXPECT_EQ(second.localTag(), nullptr);
    EXPECT_EQ(copy.key(), key(1));
    EXPECT_EQ(WideString(copy.getProperty(L"name")), L"set");
    EXPECT_EQ(attributeDeaths + valueDeaths, 0);
  }
  EXPECT_EQ(attributeDeaths, 1);
  EXPECT_EQ(valueDeaths, 1);
}

TEST(Dictionary, RefusesASecondElementWithALabelAndDeletesItOnce) {
  int deaths = 0;
  {
    Dictionary dictionary;
    const auto add = [&](unsigned char last) {
      dictionary.addMetaElement(
          label(last), auto_ptr<MetaElement>(new Counted<MetaSimpleElement>(deaths, label(last), Identifier::UInt8)));
    };
    add(0x80);
    add(0x01);
    add(0x7F);
    const MetaElement* first = dictionary.findMetaElement(label(0x80));
    EXPECT_EQ(failureOf([&] { add(0x80); }), "44 06.0E.2B.34.00.00.00.00.00.00.00.00.00.00.00.80");
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(dictionary.findMetaElement(label(0x80)), first);
    EXPECT_EQ(dictionary.findMetaElement(label(0x81)), nullptr);
    std::string order;
    for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
      EXPECT_EQ(entry->first, entry->second->universalLabel());
      order += std::to_string(entry->first[15]) + " ";
    }
    EXPECT_EQ(order, "1 127 128 ");
  }
  EXPECT_EQ(deaths, 4);
}

TEST(Dictionary, KeepsItsOwnCopyOfASetAndRefusesASecondWithItsKey) {
  Dictionary dictionary;
  MetaMetadataSet set(key(2));
  set.addProperty(L"name", L"first");
  dictionary.addMetaMetadataSet(key(2), set);
  set.addProperty(L"name", L"changed");
  EXPECT_EQ(failureOf([&] { dictionary.addMetaMetadataSet(key(2), set); }),
            "45 06.0E.2B.34.00.00.00.00.00.00.00.00.00.00.00.02");
  dictionary.addMetaMetadataSet(key(1), MetaMetadataSet(key(1)));
  auto entry = dictionary.metaMetadataSetBegin();
  EXPECT_EQ(entry->first, key(1));
  ++entry;
  EXPECT_EQ(&entry->second, dictionary.findMetaMetadataSet(key(2)));
  EXPECT_EQ(WideString(entry->second.getProperty(L"name")), L"first");
  EXPECT_EQ(++entry, dictionary.metaMetadataSetEnd());
  EXPECT_EQ(dictionary.findMetaMetadataSet(key(3)), nullptr);
}

TEST(Dictionary, LocalTagsAreASetOfPairsByTagThenLabel) {
  const LocalTag low(L"00FF", form);
  const LocalTag high(L"8000", form);
  Dictionary dictionary;
  dictionary.addLocalTag(high, label(1));
  dictionary.addLocalTag(low, label(2));
  dictionary.addLocalTag(low, label(1));   // a second label of the tag, a second tag of the label
  dictionary.addLocalTag(high, label(1));  // nothing new
  EXPECT_THAT(dictionary.localTags(), ElementsAre(Pair(low, label(1)), Pair(low, label(2)), Pair(high, label(1))));
  EXPECT_THAT(dictionary.localTagsOf(label(1)), ElementsAre(low, high));
  EXPECT_THAT(dictionary.localTagsOf(label(3)), ElementsAre());
}

}  // namespace
}  // namespace MXF::Tessel::MetaMetadata
