// Pending set references become allowed sets once the groups they name are known.

#include "SetReferenceResolution.h"

#include "PendingSetReferences.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/PropertyKeys.h>

#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading::XSDLoaderUtils {

using Templates::WideString;

namespace {

WideString pendingText(const PropertyMap& properties) {
  try {
    return properties.getProperty(PropertyKeys::unresolvedSetReferences);
  } catch (const Exceptions::NotFound&) {
    return {};
  }
}

}  // namespace

DictionaryMetaElementVisitor::DictionaryMetaElementVisitor(const GroupKeys* groupKeysByName, WideString namespaceUri)
    : groupKeysByName_(groupKeysByName), namespaceUri_(std::move(namespaceUri)) {}

void DictionaryMetaElementVisitor::visit(MetaReferenceCollection& element) {
  resolve(element, element);
}
void DictionaryMetaElementVisitor::visit(MetaReferenceElement& element) {
  resolve(element, element);
}

void DictionaryMetaElementVisitor::resolve(PropertyMap& properties, MetaReferenceHolder& holder) const {
  PendingSetReferences references = parsePendingReferences(pendingText(properties));
  for (auto reference = references.begin(); reference != references.end();) {
    const auto group = groupKeysByName_->find(reference->first);
    if (group != groupKeysByName_->end() && reference->second == namespaceUri_) {
      holder.addAllowedMetadataSet(*group->second);
      reference = references.erase(reference);
    } else {
      ++reference;
    }
  }
  properties.addProperty(PropertyKeys::unresolvedSetReferences, formatPendingReferences(references).c_str());
}

}  // namespace MXF::Tessel::MetaMetadata::Loading::XSDLoaderUtils
