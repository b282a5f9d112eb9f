// The private record: the choice of the flavour, and handing its queries to the loader proper at the first load.

#include "XSDDictionaryLoader2Impl.h"

#include "../XSDLoaderImpl/ErrorTranslation.h"
#include "../XSDLoaderImpl/Names.h"
#include "../XSDLoaderImpl/XSDLoaderImplData.h"

#include <Exceptions/Exceptions.h>
#include <Platform/malloc_alloc.h>
#include <XMLUtils/DocumentLoading.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/util/XMLString.hpp>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;

XSDDictionaryLoader2Impl::XSDDictionaryLoader2Impl() : multiplexParser_(createParser()) {}

XSDDictionaryLoader2Impl& XSDDictionaryLoader2Impl::operator=(const XSDDictionaryLoader2Impl& other) {
  if (this == &other) return *this;
  loader_ = other.loader_;
  flavour_ = other.flavour_;
  queriesInstalled_ = other.queriesInstalled_;
  return *this;
}

void* XSDDictionaryLoader2Impl::operator new(std::size_t size) {
  return Platform::malloc_alloc::allocate(size);
}
void XSDDictionaryLoader2Impl::operator delete(void* block, std::size_t size) noexcept {
  Platform::malloc_alloc::deallocate(block, size);
}

void XSDDictionaryLoader2Impl::loadMultiplex(const WideString& path) {
  if (queriesInstalled_) {
    throw Exceptions::OperationNotAllowed(L"loadMultiplex must be called prior to loadDictionary or loadScheme",
                                          SourceNames::facade, __LINE__);
  }
  WideString file = path;
  toForwardSlashes(file);
  const WideString uri = translatingSaxErrors(SourceNames::facade, __LINE__, [&] { return readTargetNamespace(file); });
  if (uri == registryMultiplexNamespace) {
    flavour_ = SchemaFlavour::RegistryUri;
  } else if (uri == urnMultiplexNamespace) {
    flavour_ = SchemaFlavour::Urn;
  } else {
    throw Exceptions::InvalidValue(L"Unknown targetNamespace in multiplex file.", SourceNames::facade, __LINE__);
  }
}

WideString XSDDictionaryLoader2Impl::readTargetNamespace(const WideString& path) {
  multiplexParser_->resetDocumentPool();
  const xercesc::DOMDocument* document = XMLUtils::loadDocumentFromFile(path.c_str(), *multiplexParser_);
  if (document == nullptr) {
    throw Exceptions::IOError((path + L" file Not Found!").c_str(), SourceNames::facade, __LINE__);
  }
  const xercesc::DOMNamedNodeMap& attributes = *document->getDocumentElement()->getAttributes();
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    const xercesc::DOMNode& attribute = *attributes.item(i);
    if (xercesc::XMLString::equals(attribute.getLocalName(), u"targetNamespace")) {
      return XMLUtils::toWstring(attribute.getNodeValue());
    }
  }
  return {};
}

void XSDDictionaryLoader2Impl::installQuerySet() {
  if (queriesInstalled_) return;
  const QuerySet queries = queriesOf(flavour_);
  loader_.setQueries(queries.elementDeclarations, queries.groupDeclarations, queries.groupElementProperties,
                     queries.groupAttributeProperties, queries.requiredStatus, queries.distinguishedValue,
                     queries.localTag, queries.semanticsValidation, queries.elementUL, queries.groupKey,
                     queries.elementName, queries.elementLength, queries.groupName);
  queriesInstalled_ = true;
}

void XSDDictionaryLoader2Impl::loadDictionary(const WideString& path, Dictionary& dictionary) {
  installQuerySet();
  loader_.loadDictionary(path, dictionary);
}

void XSDDictionaryLoader2Impl::loadScheme(const WideString& path, Dictionary& dictionary) {
  installQuerySet();
  loader_.loadScheme(path, dictionary);
}

WideString XSDDictionaryLoader2Impl::getTargetNamespace() const {
  return flavour_ == SchemaFlavour::RegistryUri ? registryMultiplexNamespace : urnMultiplexNamespace;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
