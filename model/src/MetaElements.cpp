// Properties, elements, their facets, and the dispatch of visitors to them.

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/NullMetaElementVisitor.h>
#include <Platform/malloc_alloc.h>

namespace MXF::Tessel::MetaMetadata {

// PropertyMap

PropertyMap& PropertyMap::operator=(const PropertyMap& other) {
  properties_ = other.properties_;
  return *this;
}
PropertyMap::~PropertyMap() = default;

void PropertyMap::addProperty(const wchar_t* key, const wchar_t* value) {
  properties_.insert_or_assign(key, value);
}

const wchar_t* PropertyMap::getProperty(const wchar_t* key) const {
  const auto entry = properties_.find(key);
  if (entry == properties_.end()) {
    const Templates::WideString message = Templates::WideString(L"Property not found: ") + key;
    throw Exceptions::NotFound(message.c_str(), "MetaElements", __LINE__);
  }
  return entry->second.c_str();
}

void* PropertyMap::operator new(std::size_t size) {
  return Platform::malloc_alloc::allocate(size);
}
void PropertyMap::operator delete(void* block, std::size_t size) noexcept {
  Platform::malloc_alloc::deallocate(block, size);
}

// Facets

// NOLINTNEXTLINE(modernize-use-equals-default): the default is reported for a parameter that it does not use.
MetaValueHolder& MetaValueHolder::operator=(const MetaValueHolder& /*other*/) {
  return *this;
}
MetaValueHolder::~MetaValueHolder() = default;

MetaReferenceHolder::~MetaReferenceHolder() = default;
MetaReferenceHolder& MetaReferenceHolder::operator=(const MetaReferenceHolder& other) = default;
void MetaReferenceHolder::addAllowedMetadataSet(KLV::Key key) {
  allowedSets_.push_back(key);
}
void MetaReferenceHolder::reserveAllowedMetadataSets(std::size_t additional) {
  allowedSets_.reserve(allowedSets_.size() + additional);
}

// Elements. Assignment leaves what construction fixed, so all of it goes down to the properties and the allowed sets;
// the default would assign the fixed members too. NOLINTBEGIN(modernize-use-equals-default)

MetaElement::~MetaElement() = default;
MetaElement& MetaElement::operator=(const MetaElement& other) {
  PropertyMap::operator=(other);
  return *this;
}

MetaCollectionElement::~MetaCollectionElement() = default;
MetaCollectionElement& MetaCollectionElement::operator=(const MetaCollectionElement& other) {
  MetaElement::operator=(other);
  return *this;
}

MetaSimpleElement::~MetaSimpleElement() = default;
void MetaSimpleElement::accept(Visitors::NonConstMetaElementVisitor& visitor) {
  visitor.visit(*this);
}
void MetaSimpleElement::accept(Visitors::MetaElementVisitor& visitor) const {
  visitor.visit(*this);
}
MetaSimpleElement& MetaSimpleElement::operator=(const MetaSimpleElement& other) {
  MetaElement::operator=(other);
  return *this;
}

MetaCollection::~MetaCollection() = default;
void MetaCollection::accept(Visitors::NonConstMetaElementVisitor& visitor) {
  visitor.visit(*this);
}
void MetaCollection::accept(Visitors::MetaElementVisitor& visitor) const {
  visitor.visit(*this);
}
MetaCollection& MetaCollection::operator=(const MetaCollection& other) {
  MetaCollectionElement::operator=(other);
  return *this;
}

MetaReferenceElement::~MetaReferenceElement() = default;
void MetaReferenceElement::accept(Visitors::NonConstMetaElementVisitor& visitor) {
  visitor.visit(*this);
}
void MetaReferenceElement::accept(Visitors::MetaElementVisitor& visitor) const {
  visitor.visit(*this);
}
MetaReferenceElement& MetaReferenceElement::operator=(const MetaReferenceElement& other) {
  MetaElement::operator=(other);
  MetaReferenceHolder::operator=(other);
  return *this;
}

MetaReferenceCollection::~MetaReferenceCollection() = default;
void MetaReferenceCollection::accept(Visitors::NonConstMetaElementVisitor& visitor) {
  visitor.visit(*this);
}
void MetaReferenceCollection::accept(Visitors::MetaElementVisitor& visitor) const {
  visitor.visit(*this);
}
MetaReferenceCollection& MetaReferenceCollection::operator=(const MetaReferenceCollection& other) {
  MetaCollectionElement::operator=(other);
  MetaReferenceHolder::operator=(other);
  return *this;
}

// NOLINTEND(modernize-use-equals-default)

// Visitors

namespace Visitors {

MetaElementVisitor::~MetaElementVisitor() = default;
NonConstMetaElementVisitor::~NonConstMetaElementVisitor() = default;

NullMetaElementVisitor::~NullMetaElementVisitor() = default;
void NullMetaElementVisitor::visit(const MetaCollectionElement& /*element*/) {}
void NullMetaElementVisitor::visit(const MetaReferenceHolder& /*facet*/) {}
void NullMetaElementVisitor::visit(const MetaValueHolder& /*facet*/) {}
void NullMetaElementVisitor::visit(const MetaReferenceCollection& element) {
  visit(static_cast<const MetaReferenceHolder&>(element));
  visit(static_cast<const MetaCollectionElement&>(element));
}
void NullMetaElementVisitor::visit(const MetaReferenceElement& element) {
  visit(static_cast<const MetaReferenceHolder&>(element));
}
void NullMetaElementVisitor::visit(const MetaCollection& element) {
  visit(static_cast<const MetaValueHolder&>(element));
  visit(static_cast<const MetaCollectionElement&>(element));
}
void NullMetaElementVisitor::visit(const MetaSimpleElement& /*element*/) {}

NullNonConstMetaElementVisitor::~NullNonConstMetaElementVisitor() = default;
void NullNonConstMetaElementVisitor::visit(MetaCollectionElement& /*element*/) {}
void NullNonConstMetaElementVisitor::visit(MetaReferenceHolder& /*facet*/) {}
void NullNonConstMetaElementVisitor::visit(MetaValueHolder& /*facet*/) {}
void NullNonConstMetaElementVisitor::visit(MetaReferenceCollection& element) {
  visit(static_cast<MetaReferenceHolder&>(element));
  visit(static_cast<MetaCollectionElement&>(element));
}
void NullNonConstMetaElementVisitor::visit(MetaReferenceElement& element) {
  visit(static_cast<MetaReferenceHolder&>(element));
}
void NullNonConstMetaElementVisitor::visit(MetaCollection& element) {
  visit(static_cast<MetaValueHolder&>(element));
  visit(static_cast<MetaCollectionElement&>(element));
}
void NullNonConstMetaElementVisitor::visit(MetaSimpleElement& /*element*/) {}

}  // namespace Visitors
}  // namespace MXF::Tessel::MetaMetadata
