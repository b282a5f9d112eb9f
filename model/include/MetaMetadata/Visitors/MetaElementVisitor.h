#pragma once

#include <Platform/Export.h>

namespace MXF::Tessel::MetaMetadata {

class MetaCollection;
class MetaCollectionElement;
class MetaReferenceCollection;
class MetaReferenceElement;
class MetaReferenceHolder;
class MetaSimpleElement;
class MetaValueHolder;

namespace Visitors {

/// Asks an element for its class: accept() of an element calls the one overload of its own concrete class. The
/// overloads for the facets are there for visitors that forward to them (NullMetaElementVisitor). Elements are not
/// changed.
class TESSELMXF_MODEL_API MetaElementVisitor {
 public:
  virtual ~MetaElementVisitor();
  ///@{
  /// Called by the element's accept(); the element is borrowed for the call.
  virtual void visit(const MetaCollectionElement& element) = 0;
  virtual void visit(const MetaReferenceHolder& facet) = 0;
  virtual void visit(const MetaValueHolder& facet) = 0;
  virtual void visit(const MetaReferenceCollection& element) = 0;
  virtual void visit(const MetaReferenceElement& element) = 0;
  virtual void visit(const MetaCollection& element) = 0;
  virtual void visit(const MetaSimpleElement& element) = 0;
  ///@}
};

/// The same for elements that the visitor may change.
class TESSELMXF_MODEL_API NonConstMetaElementVisitor {
 public:
  virtual ~NonConstMetaElementVisitor();
  ///@{
  /// Called by the element's accept(); the element is borrowed for the call.
  virtual void visit(MetaCollectionElement& element) = 0;
  virtual void visit(MetaReferenceHolder& facet) = 0;
  virtual void visit(MetaValueHolder& facet) = 0;
  virtual void visit(MetaReferenceCollection& element) = 0;
  virtual void visit(MetaReferenceElement& element) = 0;
  virtual void visit(MetaCollection& element) = 0;
  virtual void visit(MetaSimpleElement& element) = 0;
  ///@}
};

}  // namespace Visitors
}  // namespace MXF::Tessel::MetaMetadata
