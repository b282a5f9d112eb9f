#pragma once

#include <KLV/Key.h>
#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/Visitors/NullMetaElementVisitor.h>
#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>

namespace MXF::Tessel::MetaMetadata::Loading {

/// Keys of the groups of one scheme document, by group name.
using GroupKeys = Templates::map<Templates::WideString, Templates::auto_ptr<KLV::Key>>;

namespace XSDLoaderUtils {

/// Visits the elements of a dictionary and turns those pending set references of theirs that name a group of one scheme
/// document into allowed sets. What stays pending is written back, in name order.
class DictionaryMetaElementVisitor : public Visitors::NullNonConstMetaElementVisitor {
 public:
  /// @param groupKeysByName  the document's groups; outlives the visitor.
  /// @param namespaceUri     the document's target namespace.
  DictionaryMetaElementVisitor(const GroupKeys* groupKeysByName, Templates::WideString namespaceUri);

  using NullNonConstMetaElementVisitor::visit;
  void visit(MetaReferenceCollection& element) override;
  void visit(MetaReferenceElement& element) override;

 private:
  void resolve(PropertyMap& properties, MetaReferenceHolder& holder) const;

  const GroupKeys* groupKeysByName_;
  Templates::WideString namespaceUri_;
};

}  // namespace XSDLoaderUtils
}  // namespace MXF::Tessel::MetaMetadata::Loading
