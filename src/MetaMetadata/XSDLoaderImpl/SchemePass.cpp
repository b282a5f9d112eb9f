// The scheme pass: group declarations become sets. Entry point: processSchemeDocument(), which names the steps; each step
// that is more than a few lines has a file of its own.

#include "SchemePass.h"

#include "DeclarationOrigins.h"
#include "DocumentAccess.h"
#include "GroupKeys.h"
#include "SchemeState.h"
#include "SetConstruction.h"
#include "SetReferenceResolution.h"
#include "XPathEvaluation.h"

#include <MetaMetadata/PropertyKeys.h>

#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;

namespace {

ElementsByXmlName indexElementsByXmlName(const Dictionary& dictionary) {
  ElementsByXmlName index;
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    const MetaElement* element = entry->second;
    const WideString tag = element->getProperty(PropertyKeys::xmlTagName);
    // The first in label order keeps the name.
    index.emplace(element->getProperty(PropertyKeys::xmlNamespaceURI) + (L":" + tag), element);
  }
  return index;
}

Elements selectGroups(const XSDLoaderImplData& data, xercesc::DOMDocument& document) {
  Elements groups;
  selectElements(document, data.queries.groupDeclarations->utf16(), data.nsResolver, groups);
  return groups;
}

GroupKeys readGroupKeys(const XSDLoaderImplData& data, const Elements& groups) {
  GroupKeys keys;
  for (xercesc::DOMElement* group : groups) {
    if (auto key = workingOn(data, *group, [&] { return readGroupKey(data, *group); }))
      keys[attributeOf(*group, u"name")] = std::move(key);
  }
  return keys;
}

void resolvePendingReferences(const GroupKeys& groupKeysByName, const WideString& namespaceUri,
                              Dictionary& dictionary) {
  XSDLoaderUtils::DictionaryMetaElementVisitor resolver(&groupKeysByName, namespaceUri);
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    entry->second->accept(resolver);
  }
}

void registerSets(const LoadedSets& sets, Dictionary& dictionary) {
  for (const auto& entry : sets) {
    const MetaMetadataSet& set = *entry.second;
    workingAt([&] { return set.origin(); }, [&] { dictionary.addMetaMetadataSet(set.key(), set); });
  }
}

void registerLocalTags(const PendingLocalTags& tags, Dictionary& dictionary) {
  for (const auto& [tag, label] : tags) dictionary.addLocalTag(*tag, label);
}

}  // namespace

void processSchemeDocument(XSDLoaderImplData& data, xercesc::DOMDocument& document, Dictionary& dictionary) {
  SchemeState state;
  state.elementsByXmlName = indexElementsByXmlName(dictionary);
  state.groupElements = selectGroups(data, document);
  state.groupKeysByName = readGroupKeys(data, state.groupElements);
  // Before any set is built: what this changes in the dictionary stays, even if a set fails.
  resolvePendingReferences(state.groupKeysByName, targetNamespaceOf(document), dictionary);
  buildGroupSets(data, state);
  // Nothing of this document is registered unless all of it was built.
  registerSets(state.loadedSets, dictionary);
  registerLocalTags(state.pendingLocalTags, dictionary);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
