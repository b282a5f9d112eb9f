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
  MetaReferenceHolder::Keys resolved;
  for (auto reference = references.begin(); reference != references.end();) {
    const auto group = groupKeysByName_->find(reference->first);
    if (group != groupKeysByName_->end() && reference->second == namespaceUri_) {
      resolved.push_back(*group->second);
      reference = references.erase(reference);
    } else {
      ++reference;
    }
  }
  // All of the element changes or nothing: a reference that is resolved and still pending would be resolved again.
  holder.reserveAllowedMetadataSets(resolved.size());
  properties.addProperty(PropertyKeys::unresolvedSetReferences, formatPendingReferences(references).c_str());
  for (const KLV::Key& key : resolved) holder.addAllowedMetadataSet(key);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading::XSDLoaderUtils
