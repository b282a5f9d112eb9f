#pragma once

#include <MetaMetadata/Visitors/MetaElementVisitor.h>

namespace MXF::Tessel::MetaMetadata::Visitors {

/// Base of visitors that ask one question and let all else pass. A reference collection goes on to its facets
/// MetaReferenceHolder and MetaCollectionElement, a reference element to MetaReferenceHolder, a collection to
/// MetaValueHolder and MetaCollectionElement, in that order; all other overloads do nothing.
class TESSELMXF_MODEL_API NullMetaElementVisitor : public MetaElementVisitor {
 public:
  ~NullMetaElementVisitor() override;
  void visit(const MetaCollectionElement& element) override;
  void visit(const MetaReferenceHolder& facet) override;
  void visit(const MetaValueHolder& facet) override;
  void visit(const MetaReferenceCollection& element) override;
  void visit(const MetaReferenceElement& element) override;
  void visit(const MetaCollection& element) override;
  void visit(const MetaSimpleElement& element) override;
};

/// The same for elements that the visitor may change.
class TESSELMXF_MODEL_API NullNonConstMetaElementVisitor : public NonConstMetaElementVisitor {
 public:
  ~NullNonConstMetaElementVisitor() override;
  void visit(MetaCollectionElement& element) override;
  void visit(MetaReferenceHolder& facet) override;
  void visit(MetaValueHolder& facet) override;
  void visit(MetaReferenceCollection& element) override;
  void visit(MetaReferenceElement& element) override;
  void visit(MetaCollection& element) override;
  void visit(MetaSimpleElement& element) override;
};

}  // namespace MXF::Tessel::MetaMetadata::Visitors
