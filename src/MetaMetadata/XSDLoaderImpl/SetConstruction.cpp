// Group declarations become sets with their attributes and properties. Entry point: buildGroupSets().

#include "SetConstruction.h"

#include "AttributeConstruction.h"
#include "DeclarationOrigins.h"
#include "DocumentAccess.h"
#include "GroupKeys.h"
#include "LabelDesignator.h"
#include "SourceNames.h"
#include "TypeResolution.h"
#include "XmlProperties.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/PropertyKeys.h>

#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::auto_ptr;
using Templates::WideString;

namespace {

void applySetProperties(const XSDLoaderImplData& data, xercesc::DOMElement& group, MetaMetadataSet& set,
                        const WideString& baseGroupKey) {
  addRegistryName(data, group, data.queries.groupName, set);
  set.addProperty(PropertyKeys::baseGroupLabel, baseGroupKey.c_str());
  // While abstract groups are not loaded, none of them reaches this point.
  const bool isAbstract = data.withAbstractGroups && isAbstractGroup(group);
  set.addProperty(PropertyKeys::isAbstract, isAbstract ? L"true" : L"false");
  addDocumentation(data, group, set);
  addXmlName(data, group, set);
}

auto_ptr<MetaMetadataSet> buildSet(XSDLoaderImplData& data, xercesc::DOMElement& group, const KLV::Key& key,
                                   SchemeState& state) {
  auto_ptr<MetaMetadataSet> set(new MetaMetadataSet(key));
  set->setOrigin(originOf(data, group));
  const TypeProperties type =
      collectPropertyDeclarations(data, *group.getOwnerDocument(), attributeOf(group, u"type"), state.knownTypes);
  int index = 0;
  for (xercesc::DOMElement* declaration : type.declarations) {
    auto attribute = workingOn(data, *declaration, [&] { return buildAttribute(data, *declaration, index++, state); });
    set->addMetaAttribute(MetaMetadataSet::Attribute(std::move(attribute)));
  }
  applySetProperties(data, group, *set, type.baseGroupKey);
  return set;
}

void buildGroupSet(XSDLoaderImplData& data, xercesc::DOMElement& group, SchemeState& state) {
  const auto_ptr<KLV::Key> key = readGroupKey(data, group);
  if (!key) return;
  const Types::UniversalLabel label(*key);
  if (state.loadedSets.count(label) != 0) {
    const WideString message = key->toString(textForm);
    throw Exceptions::MetaMetadataSetAlreadyLoaded(message.c_str(), SourceNames::loaderImpl, __LINE__);
  }
  state.loadedSets.emplace(label, buildSet(data, group, *key, state));
}

}  // namespace

void buildGroupSets(XSDLoaderImplData& data, SchemeState& state) {
  for (xercesc::DOMElement* group : state.groupElements) {
    workingOn(data, *group, [&] { buildGroupSet(data, *group, state); });
  }
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
