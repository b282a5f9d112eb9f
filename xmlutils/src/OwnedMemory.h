#pragma once

#include <xercesc/framework/MemoryManager.hpp>

#include <cstddef>

namespace MXF::Tessel::XMLUtils {

/// Memory for a parser or a query engine of the XML libraries, in which running out of it does no lasting harm: it is
/// told by std::bad_alloc, and what the libraries lose then is freed with this object.
///
/// Xerces-C lets everything stand when it meets its own OutOfMemoryException: what it was building is lost, or used
/// half-built, and a parser takes no more files. It cleans up after any other exception. XQilla tells it by an
/// XQillaException like any other, and loses what it was building.
///
/// Used by one thread at a time.
class OwnedMemory : public xercesc::MemoryManager {
 public:
  /// @param source  outlives this object.
  explicit OwnedMemory(xercesc::MemoryManager& source) : source_(source) {}
  OwnedMemory(const OwnedMemory&) = delete;
  OwnedMemory& operator=(const OwnedMemory&) = delete;
  ~OwnedMemory() override;

  void* allocate(XMLSize_t size) override;
  void deallocate(void* memory) override;
  xercesc::MemoryManager* getExceptionMemoryManager() override { return source_.getExceptionMemoryManager(); }

  /// Whether an allocation has failed. What was being made or used then is not to be trusted.
  bool hasRunOut() const { return hasRunOut_; }
  void forgetRunningOut() { hasRunOut_ = false; }

  /// Counts the blocks of this size that are asked for: what the libraries do shows in it where they tell nothing.
  void watch(XMLSize_t size) { watchedSize_ = size; }
  std::size_t watchedBlocks() const { return watchedBlocks_; }
  void forgetWatchedBlocks() { watchedBlocks_ = 0; }

 private:
  /// Stands before each block.
  struct Link {
    Link* previous;
    Link* next;
  };

  xercesc::MemoryManager& source_;
  Link blocks_{&blocks_, &blocks_};  // the ring that all blocks in use are linked into
  bool hasRunOut_ = false;
  XMLSize_t watchedSize_ = 0;
  std::size_t watchedBlocks_ = 0;
};

}  // namespace MXF::Tessel::XMLUtils
