#pragma once

#include <Platform/Synchronization.h>
#include <Platform/malloc_alloc.h>
#include <Templates/auto_ptr.h>

#include <new>
#include <utility>

namespace MXF::Tessel::Templates {

/// Counter policy of SharedPtr: interlocked, so that holders on several threads may come and go.
struct LockedCounter {
  /// A counter that stands at one.
  /// @throws std::bad_alloc
  static int* create() { return new (Platform::malloc_alloc::allocate(sizeof(int))) int(1); }
  /// Frees what create() gave.
  static void destroy(int* counter) noexcept { Platform::malloc_alloc::deallocate(counter, sizeof(int)); }
  ///@{
  /// One step; gives the new count.
  static int increment(int& counter) noexcept { return Platform::Synchronization::interlockedIncrement(counter); }
  static int decrement(int& counter) noexcept { return Platform::Synchronization::interlockedDecrement(counter); }
  ///@}
};

/// Shared owner of an object: the last holder deletes it, if it is owned at all.
///
/// The counter may be changed from several threads at once; one SharedPtr object, and the object it points at, are used
/// by one thread at a time like any other value. The counter's freeing function travels with the pointer, so that the
/// side that made the counter also frees it.
template <class T, class Counter>
class SharedPtr {
 public:
  /// Points at nothing.
  SharedPtr() noexcept = default;

  /// Takes over the object, also when making the counter fails (the object is deleted then).
  /// @throws std::bad_alloc
  explicit SharedPtr(auto_ptr<T> object) : counter_(object ? Counter::create() : nullptr), object_(object.release()) {}

  /// Refers to an object that somebody else owns and that outlives every holder.
  /// @throws std::bad_alloc
  static SharedPtr borrowed(T& object) {
    SharedPtr pointer;
    pointer.counter_ = Counter::create();
    pointer.object_ = &object;
    pointer.owning_ = false;
    return pointer;
  }

  /// One more holder of the same object.
  SharedPtr(const SharedPtr& other) noexcept
      : counter_(other.counter_),
        destroyCounter_(other.destroyCounter_),
        object_(other.object_),
        owning_(other.owning_) {
    if (counter_ != nullptr) Counter::increment(*counter_);
  }
  /// Leaves the other pointing at nothing.
  SharedPtr(SharedPtr&& other) noexcept { swap(other); }
  /// Gives up the object held before.
  SharedPtr& operator=(SharedPtr other) noexcept {
    swap(other);
    return *this;
  }
  ~SharedPtr() {
    if (counter_ == nullptr || Counter::decrement(*counter_) != 0) return;
    if (owning_) auto_ptr<T>(object_).reset();
    destroyCounter_(counter_);
  }

  /// The object, or null; stays the holders'.
  T* get() const noexcept { return object_; }
  ///@{
  /// The object; there must be one.
  T& operator*() const noexcept { return *object_; }
  T* operator->() const noexcept { return object_; }
  ///@}
  /// Whether this points at an object.
  explicit operator bool() const noexcept { return object_ != nullptr; }
  /// Whether the last holder deletes the object.
  bool owns() const noexcept { return owning_ && object_ != nullptr; }

  /// Exchanges objects and counters.
  void swap(SharedPtr& other) noexcept {
    std::swap(counter_, other.counter_);
    std::swap(destroyCounter_, other.destroyCounter_);
    std::swap(object_, other.object_);
    std::swap(owning_, other.owning_);
  }

 private:
  int* counter_ = nullptr;
  void (*destroyCounter_)(int*) = &Counter::destroy;
  T* object_ = nullptr;
  bool owning_ = true;
};

}  // namespace MXF::Tessel::Templates
