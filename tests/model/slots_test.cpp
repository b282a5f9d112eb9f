// Order of the virtual operations. Hosts are built against the slots, so an operation that moves breaks them silently.

#include <Exceptions/BaseException.h>
#include <MetaMetadata/Dictionary.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>
#include <Types/Factories/BaseTypeFactory.h>
#include <Types/Types.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace MXF::Tessel {
namespace {

using testing::ElementsAre;

/// Positions in the virtual table. In the Itanium C++ ABI a pointer to a virtual member function holds the byte offset
/// of its slot (plus one on most machines, where the lowest bit tells it from an address); destructors take two slots.
template <class... Operations>
std::vector<std::ptrdiff_t> slots(Operations... operations) {
  const auto slotOf = [](auto operation) {
    std::ptrdiff_t representation[2];
    static_assert(sizeof(operation) == sizeof(representation));
    std::memcpy(representation, &operation, sizeof(operation));
    return representation[0] / static_cast<std::ptrdiff_t>(sizeof(void*));
  };
  return {slotOf(operations)...};
}

/// The copy assignments that the classes themselves declare.
template <class... Classes>
std::vector<std::ptrdiff_t> assignmentSlots() {
  return slots(static_cast<Classes& (Classes::*)(const Classes&)>(&Classes::operator=)...);
}
/// The visit overloads for the classes.
template <class Visitor, class... Classes>
std::vector<std::ptrdiff_t> visitSlots() {
  return slots(static_cast<void (Visitor::*)(Classes&)>(&Visitor::visit)...);
}
/// The accept operations for a visitor that may change the class and one that may not.
template <class Class, class Changing, class Reading>
std::vector<std::ptrdiff_t> acceptSlots() {
  return slots(static_cast<void (Class::*)(Changing&)>(&Class::accept),
               static_cast<void (Class::*)(Reading&) const>(&Class::accept));
}

TEST(SlotOrder, OfElementsFacetsAndAttributes) {
  using namespace MetaMetadata;
  using Visitors::MetaElementVisitor;
  using Visitors::NonConstMetaElementVisitor;
  EXPECT_THAT(slots(&PropertyMap::addProperty, &PropertyMap::getProperty), ElementsAre(3, 4));
  EXPECT_THAT((acceptSlots<MetaElement, NonConstMetaElementVisitor, MetaElementVisitor>()), ElementsAre(6, 7));
  EXPECT_THAT((assignmentSlots<PropertyMap, MetaElement, MetaSimpleElement>()), ElementsAre(0, 5, 8));
  EXPECT_THAT((assignmentSlots<PropertyMap, MetaElement, MetaReferenceElement>()), ElementsAre(0, 5, 8));
  EXPECT_THAT((assignmentSlots<MetaElement, MetaCollectionElement, MetaCollection>()), ElementsAre(5, 8, 9));
  EXPECT_THAT((assignmentSlots<MetaElement, MetaCollectionElement, MetaReferenceCollection>()), ElementsAre(5, 8, 9));
  EXPECT_THAT((assignmentSlots<MetaValueHolder, MetaReferenceHolder>()),
              ElementsAre(0, 2));  // before, after destructor
  EXPECT_THAT(slots(&AbstractMetaAttribute::accept), ElementsAre(2));
}

TEST(SlotOrder, OfElementVisitors) {
  using namespace MetaMetadata;
  const auto inOrderAfterDestructor = ElementsAre(2, 3, 4, 5, 6, 7, 8);
  EXPECT_THAT((visitSlots<Visitors::MetaElementVisitor, const MetaCollectionElement, const MetaReferenceHolder,
                          const MetaValueHolder, const MetaReferenceCollection, const MetaReferenceElement,
                          const MetaCollection, const MetaSimpleElement>()),
              inOrderAfterDestructor);
  EXPECT_THAT(
      (visitSlots<Visitors::NonConstMetaElementVisitor, MetaCollectionElement, MetaReferenceHolder, MetaValueHolder,
                  MetaReferenceCollection, MetaReferenceElement, MetaCollection, MetaSimpleElement>()),
      inOrderAfterDestructor);
  EXPECT_THAT(slots(&Visitors::GetMetaElementVisitor<MetaCollectionElement>::get,
                    &Visitors::GetNonConstMetaElementVisitor<MetaCollection>::get),
              ElementsAre(9, 9));
}

TEST(SlotOrder, OfRegistriesAndSingletons) {
  using MetaMetadata::AttributeRequiredStatus;
  using MetaMetadata::Dictionary;
  using Types::Factories::BaseTypeFactory;
  EXPECT_THAT(slots(&Dictionary::addLocalTag, &Dictionary::addMetaMetadataSet), ElementsAre(2, 5));
  EXPECT_THAT(slots(&MetaMetadata::MetaElementRegistry::addMetaElement), ElementsAre(2));
  EXPECT_THAT(slots(&AttributeRequiredStatus::fromString, &AttributeRequiredStatus::toString), ElementsAre(0, 1));
  EXPECT_THAT(slots(&BaseTypeFactory::lookupSimpleType, &BaseTypeFactory::lookupCollectionType), ElementsAre(0, 2));
}

TEST(SlotOrder, OfValuesAndExceptions) {
  using namespace Types;
  using Exceptions::BaseException;
  EXPECT_THAT((acceptSlots<Int64, Visitors::NonConstVisitor, Visitors::Visitor>()), ElementsAre(2, 3));
  EXPECT_THAT(slots(&Int64::serialize, &Int64::rawBuffer, &Int64::serializedSize, &Int64::clone),
              ElementsAre(4, 5, 6, 7));
  EXPECT_THAT(slots(&UUID::clone, &UUID::operator[], &UUID::size, &UUID::toString), ElementsAre(7, 8, 9, 10));
  EXPECT_THAT(slots(&LocalTag::clone, &LocalTag::size, &LocalTag::toString), ElementsAre(7, 8, 9));
  EXPECT_THAT(slots(&Array::serialize, &Array::serializedSize, &Array::clone), ElementsAre(4, 5, 6));
  EXPECT_THAT(slots(&BaseException::message, &BaseException::what, &BaseException::code), ElementsAre(2, 3, 4));
}

}  // namespace
}  // namespace MXF::Tessel
