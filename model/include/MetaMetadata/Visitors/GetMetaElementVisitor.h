#pragma once

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/NullMetaElementVisitor.h>

namespace MXF::Tessel::MetaMetadata::Visitors {

/// Captures an element as a T, T being one of the concrete classes or facets of MetaElementVisitor: after
/// element.accept(visitor), get() is the element as a T, or null when NullMetaElementVisitor does not lead it there. So
/// a simple element is never captured as its facet MetaValueHolder. Borrowed from the element.
template <class T>
class GetMetaElementVisitor : public NullMetaElementVisitor {
 public:
  using NullMetaElementVisitor::visit;
  /// Captures the element.
  void visit(const T& element) override { element_ = &element; }
  /// The element captured last, or null.
  virtual const T* get() { return element_; }

 private:
  const T* element_ = nullptr;
};

/// The same for elements that the caller may change.
template <class T>
class GetNonConstMetaElementVisitor : public NullNonConstMetaElementVisitor {
 public:
  using NullNonConstMetaElementVisitor::visit;
  /// Captures the element.
  void visit(T& element) override { element_ = &element; }
  /// The element captured last, or null.
  virtual T* get() { return element_; }

 private:
  T* element_ = nullptr;
};

}  // namespace MXF::Tessel::MetaMetadata::Visitors
