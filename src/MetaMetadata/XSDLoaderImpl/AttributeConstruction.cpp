// A property declaration becomes an attribute: first all annotations are read, in the order in which their faults are
// to be reported, then the attribute is made and given its properties.

#include "AttributeConstruction.h"

#include "DeclarationOrigins.h"
#include "DocumentAccess.h"
#include "LabelDesignator.h"
#include "Names.h"
#include "PropertyAnnotations.h"
#include "SourceNames.h"
#include "ValueParsing.h"

#include <Exceptions/Exceptions.h>
#include <MetaMetadata/PropertyKeys.h>
#include <MetaMetadata/Visitors/GetMetaElementVisitor.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::auto_ptr;
using Templates::WideString;
using Types::LocalTag;
using Types::Identifiers::Identifier;
using Status = AttributeRequiredStatus::Status;

namespace {

Status requiredStatus(const PropertyAnnotations& annotations) {
  if (!annotations.requiredStatus) {
    throw Exceptions::SchemeDataMissingException(L"MetaMetadataSet without RequiredStatus.", SourceNames::loaderImpl,
                                                 __LINE__);
  }
  return AttributeRequiredStatus::instance().fromString(annotations.requiredStatus->c_str());
}

auto_ptr<LocalTag> localTag(const PropertyAnnotations& annotations) {
  if (!annotations.localTag) return nullptr;
  return std::make_unique<LocalTag>(annotations.localTag->c_str(), textForm);
}

const MetaElement& referencedElement(const xercesc::DOMElement& declaration, const WideString& reference,
                                     const ElementsByXmlName& elementsByXmlName, LoadBudget& budget) {
  const WideString uri = namespaceForPrefix(*declaration.getOwnerDocument(), qnamePrefix(reference));
  budget.takeRepeatedText(uri.size() + reference.size());
  const auto element = elementsByXmlName.find(uri + L":" + qnameLocalPart(reference));
  if (element == elementsByXmlName.end()) {
    throw Exceptions::NotFound((L"The " + reference + L" not MetaElement not found in Dictionary.").c_str(),
                               SourceNames::loaderImpl, __LINE__);
  }
  return *element->second;
}

auto_ptr<Types::BaseType> distinguishedValue(const MetaElement& element, const WideString& text) {
  if (text.empty()) return nullptr;
  Visitors::GetMetaElementVisitor<MetaCollectionElement> collection;
  element.accept(collection);
  const Identifier subType = collection.get() != nullptr ? collection.get()->dataSubType() : Identifier::Unknown;
  return stringToValue(element.dataType(), subType, text);
}

/// How many items a text that may be a list has.
std::size_t itemsOf(const WideString& value) {
  if (value.empty() || value.front() != L'{' || value.back() != L'}') return 0;
  return 1 + static_cast<std::size_t>(std::count(value.begin(), value.end(), L','));
}

}  // namespace

auto_ptr<MetaAttribute> buildAttribute(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, int index,
                                       SchemeState& state) {
  const PropertyAnnotations& annotations = state.annotations.of(
      declaration, data.schemaNamespace, [&] { return readPropertyAnnotations(data, declaration); });
  data.budget->takeAttribute();
  data.budget->takeRepeatedText(annotations.distinguishedValue.size() + annotations.semanticsValidation.size());
  data.budget->takeItems(itemsOf(annotations.distinguishedValue));
  const WideString reference = attributeOf(declaration, u"ref");
  const Status status = requiredStatus(annotations);
  auto_ptr<LocalTag> tag = localTag(annotations);
  const MetaElement& element = referencedElement(declaration, reference, state.elementsByXmlName, *data.budget);

  auto_ptr<MetaAttribute> attribute(
      new MetaAttribute(element, status, distinguishedValue(element, annotations.distinguishedValue), tag.get()));
  attribute->setOrigin(originOf(data, declaration));
  attribute->addProperty(PropertyKeys::schemaIndex, std::to_wstring(index).c_str());
  if (tag) {
    attribute->addProperty(PropertyKeys::localTag, tag->toString(textForm).c_str());
    state.pendingLocalTags.emplace_back(std::move(tag), element.universalLabel());
  }
  attribute->addProperty(PropertyKeys::requiresSemanticsValidation, annotations.semanticsValidation.c_str());
  const WideString namespaceUri = targetNamespaceOf(*declaration.getOwnerDocument());
  data.budget->takeRepeatedText(namespaceUri.size());
  attribute->addProperty(PropertyKeys::xmlNamespaceURI, namespaceUri.c_str());
  attribute->addProperty(PropertyKeys::requiredStatus, AttributeRequiredStatus::instance().toString(status));
  attribute->addProperty(PropertyKeys::universalLabel,
                         attribute->metaElement().universalLabel().toString(textForm).c_str());
  return attribute;
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
