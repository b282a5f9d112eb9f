#pragma once

#include <KLV/Key.h>
#include <Platform/Export.h>
#include <Templates/Containers.h>

#include <cstddef>

namespace MXF::Tessel::MetaMetadata {

/// Facet of the elements that hold values of their own.
class TESSELMXF_MODEL_API MetaValueHolder {
 public:
  MetaValueHolder() = default;
  MetaValueHolder(const MetaValueHolder&) = default;
  /// Takes nothing over: the facet holds nothing.
  virtual MetaValueHolder& operator=(const MetaValueHolder& other);
  virtual ~MetaValueHolder();
};

/// Facet of the elements that refer to sets: the keys of the sets they may point at.
class TESSELMXF_MODEL_API MetaReferenceHolder {
 public:
  /// Keys of sets, in the order in which they were added.
  using Keys = Templates::vector<KLV::Key>;

  /// @param allowedSets  copied.
  // NOLINTNEXTLINE(modernize-pass-by-value): the constructors of reference elements take a reference.
  explicit MetaReferenceHolder(const Keys& allowedSets) : allowedSets_(allowedSets) {}
  MetaReferenceHolder(const MetaReferenceHolder&) = default;
  virtual ~MetaReferenceHolder();
  /// Takes over a copy of the other's allowed sets in place of its own.
  virtual MetaReferenceHolder& operator=(const MetaReferenceHolder& other);

  /// Adds a key at the end; a key that is already there is added again.
  /// Cannot fail where reserveAllowedMetadataSets() has made room.
  void addAllowedMetadataSet(KLV::Key key);
  /// Makes room for so many more keys.
  /// @throws std::bad_alloc  the holder is unchanged.
  void reserveAllowedMetadataSets(std::size_t additional);
  /// Keys of the sets that the reference may point at, in the order added. Empty: none is known.
  const Keys& allowedMetadataSets() const { return allowedSets_; }

 private:
  Keys allowedSets_;
};

}  // namespace MXF::Tessel::MetaMetadata
