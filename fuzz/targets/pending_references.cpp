// The text of pending set references, parsed and written back, and resolved on an element that has it as its property.

#include "MetaMetadata/XSDLoaderImpl/PendingSetReferences.h"
#include "MetaMetadata/XSDLoaderImpl/SetReferenceResolution.h"
#include "support/Contract.h"
#include "support/Documents.h"

#include <MetaMetadata/MetaElements.h>
#include <MetaMetadata/PropertyKeys.h>

#include <iterator>
#include <memory>

using namespace MXF::Tessel;
using namespace MXF::Tessel::MetaMetadata;
using MetaMetadata::Loading::formatPendingReferences;
using MetaMetadata::Loading::GroupKeys;
using MetaMetadata::Loading::parsePendingReferences;
using MetaMetadata::Loading::PendingSetReferences;
using MetaMetadata::Loading::XSDLoaderUtils::DictionaryMetaElementVisitor;

namespace {

const KLV::Key someKey(KLV::Key::Bytes{6, 0xE, 0x2B, 0x34});
constexpr const wchar_t* schema = L"urn:t";

GroupKeys knownGroups() {
  GroupKeys groups;
  for (const wchar_t* name : {L"", L"G", L"H", L"Group"}) groups[name] = std::make_unique<KLV::Key>(someKey);
  return groups;
}

void checkTextForm(const Templates::WideString& text) {
  const PendingSetReferences references = parsePendingReferences(text);
  const Templates::WideString written = formatPendingReferences(references);
  Fuzz::require(parsePendingReferences(written) == references, "references that are written are read back");
}

void checkResolution(const wchar_t* text) {
  static const GroupKeys groups = knownGroups();
  PendingSetReferences unresolved = parsePendingReferences(text);
  std::size_t resolvedCount = 0;
  for (auto reference = unresolved.begin(); reference != unresolved.end();) {
    const bool isResolved = groups.count(reference->first) != 0 && reference->second == schema;
    resolvedCount += isResolved ? 1 : 0;
    reference = isResolved ? unresolved.erase(reference) : std::next(reference);
  }

  MetaReferenceElement element(someKey, {}, Types::Identifiers::Identifier::StrongReference);
  element.addProperty(PropertyKeys::unresolvedSetReferences, text);
  DictionaryMetaElementVisitor resolver(&groups, schema);
  for (int pass = 0; pass < 2; ++pass) {  // the second finds nothing more to resolve
    element.accept(static_cast<Visitors::NonConstMetaElementVisitor&>(resolver));
    Fuzz::require(element.allowedMetadataSets().size() == resolvedCount, "each reference to a known group is resolved");
    Fuzz::require(element.getProperty(PropertyKeys::unresolvedSetReferences) == formatPendingReferences(unresolved),
                  "all others stay pending");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Templates::WideString text = Fuzz::wideInput(Fuzz::inputText(data, size));
  checkTextForm(text);
  checkResolution(text.c_str());
  return 0;
}
