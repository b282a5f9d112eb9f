#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>
#include <Utils/SourceLocation.h>

#include <cstddef>

namespace MXF::Tessel::MetaMetadata {

/// Text properties of an element, set or attribute: what the schema says about it beyond its own members. Base of the
/// classes that carry properties.
///
/// Threads: like all objects of the model, one thread changes it; while nobody does, any number of threads may read it.
class TESSELMXF_MODEL_API PropertyMap {
 public:
  /// Texts by key (PropertyKeys.h).
  using Properties = Templates::map<Templates::WideString, Templates::WideString>;

  PropertyMap() = default;
  PropertyMap(const PropertyMap&) = default;
  /// Takes over a copy of the other map's properties in place of its own. Its origin stays.
  virtual PropertyMap& operator=(const PropertyMap& other);
  virtual ~PropertyMap();

  /// Stores a copy of both texts, which are not null; a key that is already present gets the new value.
  /// @throws std::bad_alloc  the properties are unchanged.
  virtual void addProperty(const wchar_t* key, const wchar_t* value);
  /// @return the stored value, valid until that property is set again or the map is assigned to or destroyed.
  /// @throws Exceptions::NotFound  there is no such key: "Property not found: " and the key.
  virtual const wchar_t* getProperty(const wchar_t* key) const;

  /// All properties, in key order.
  const Properties& properties() const { return properties_; }

  /// Where the schema declares it; unknown for what a host has made itself. What is loaded from one document shares its
  /// path.
  const Utils::SourceLocation& origin() const { return origin_; }
  /// @param origin  copied; what origin() gives from now on.
  void setOrigin(const Utils::SourceLocation& origin) { origin_ = origin; }

  static void* operator new(std::size_t size);
  static void operator delete(void* block, std::size_t size) noexcept;

 private:
  Properties properties_;
  Utils::SourceLocation origin_;
};

}  // namespace MXF::Tessel::MetaMetadata
