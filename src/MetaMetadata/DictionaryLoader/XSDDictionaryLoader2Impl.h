#pragma once

#include "../XSDLoaderImpl/XSDLoaderImpl.h"
#include "SchemaFlavour.h"

#include <MetaMetadata/Dictionary.h>
#include <Templates/Containers.h>
#include <XMLUtils/Released.h>

#include <xercesc/dom/DOMLSParser.hpp>

#include <cstddef>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The private record of a loader: its flavour, and the loader proper, which gets the flavour's queries at its first
/// use.
class XSDDictionaryLoader2Impl {
 public:
  XSDDictionaryLoader2Impl();
  XSDDictionaryLoader2Impl(const XSDDictionaryLoader2Impl&) = delete;
  XSDDictionaryLoader2Impl& operator=(const XSDDictionaryLoader2Impl& other);
  ~XSDDictionaryLoader2Impl() = default;

  static void* operator new(std::size_t size);
  static void operator delete(void* block, std::size_t size) noexcept;

  void loadMultiplex(const Templates::WideString& path);
  void loadDictionary(const Templates::WideString& path, Dictionary& dictionary);
  void loadScheme(const Templates::WideString& path, Dictionary& dictionary);
  Templates::WideString getTargetNamespace() const;
  XSDLoaderImpl& loader() { return loader_; }

 private:
  Templates::WideString readTargetNamespace(const Templates::WideString& path);
  void installQuerySet();

  SchemaFlavour flavour_ = SchemaFlavour::Urn;
  XSDLoaderImpl loader_;
  XMLUtils::Released<xercesc::DOMLSParser> multiplexParser_;  // only for multiplex documents
  bool queriesInstalled_ = false;                             // by the first load; never cleared but by assignment
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
