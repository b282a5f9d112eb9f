// The query texts of the two flavours. They differ in the annotation identifiers alone: each identifier stands once
// here, and each query is its frame around an identifier.

#include "SchemaFlavour.h"

#include <XMLUtils/UnicodeString.h>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;
using XMLUtils::UnicodeString;

// Adjacent literals join at compile time; constants would not.
// NOLINTBEGIN(cppcoreguidelines-macro-usage)
#define URN_DICTIONARY L"urn:SMPTE:MXF:XMLInterface:Dictionary:"
#define URN_GROUPS L"urn:SMPTE:MXF:XMLInterface:Groups:"
#define REGISTRY_BASE L"http://www.smpte-ra.org"
#define REGISTRY_DICTIONARY REGISTRY_BASE L"/schemas/434/Dictionary/"
#define REGISTRY_GROUPS REGISTRY_BASE L"/schemas/434/Groups/"

#define COMPONENTS_WITH(source) L"/xs:schema/*[./xs:annotation/xs:appinfo/@source='" source L"']"
#define ELEMENTS_WITH(source) L"/xs:schema/xs:element[./xs:annotation/xs:appinfo/@source='" source L"']"
#define INNER_ELEMENTS_WITH(source) L".//xs:element[./xs:annotation/xs:appinfo/@source='" source L"']"
#define INNER_ATTRIBUTES_WITH(source) L".//xs:attribute[./xs:annotation/xs:appinfo/@source='" source L"']"
#define TEXT_OF(source) L"./xs:annotation/xs:appinfo[@source='" source L"']/text()"
// NOLINTEND(cppcoreguidelines-macro-usage)

namespace {

/// The first ten members of a QuerySet, in its order.
struct QueryTexts {
  UnicodeString elementDeclarations;
  UnicodeString groupDeclarations;
  UnicodeString groupElementProperties;
  UnicodeString groupAttributeProperties;
  UnicodeString requiredStatus;
  UnicodeString distinguishedValue;
  UnicodeString localTag;
  UnicodeString semanticsValidation;
  UnicodeString elementUL;
  UnicodeString groupKey;
};

const QueryTexts urnTexts = {
    UnicodeString(COMPONENTS_WITH(URN_DICTIONARY L"ElementUL")),
    UnicodeString(ELEMENTS_WITH(URN_GROUPS L"Key")),
    UnicodeString(INNER_ELEMENTS_WITH(URN_GROUPS L"MetadataElementRequiredStatus")),
    UnicodeString(INNER_ATTRIBUTES_WITH(URN_GROUPS L"MetadataElementRequiredStatus")),
    UnicodeString(TEXT_OF(URN_GROUPS L"MetadataElementRequiredStatus")),
    UnicodeString(TEXT_OF(URN_GROUPS L":DistinguishedValue")),  // two colons: so the schemas of this flavour write it
    UnicodeString(TEXT_OF(URN_GROUPS L"LocalTag")),
    UnicodeString(TEXT_OF(URN_GROUPS L"RequiresSemanticsValidation")),
    UnicodeString(TEXT_OF(URN_DICTIONARY L"ElementUL")),
    UnicodeString(TEXT_OF(URN_GROUPS L"Key")),
};

const QueryTexts registryTexts = {
    UnicodeString(COMPONENTS_WITH(REGISTRY_DICTIONARY L"ElementUL")),
    UnicodeString(ELEMENTS_WITH(REGISTRY_GROUPS L"Key")),
    UnicodeString(INNER_ELEMENTS_WITH(REGISTRY_GROUPS L"PropertyRequiredStatus")),
    UnicodeString(INNER_ATTRIBUTES_WITH(REGISTRY_GROUPS L"PropertyRequiredStatus")),
    UnicodeString(TEXT_OF(REGISTRY_GROUPS L"PropertyRequiredStatus")),
    UnicodeString(TEXT_OF(REGISTRY_GROUPS L"DistinguishedValue")),
    UnicodeString(TEXT_OF(REGISTRY_GROUPS L"LocalTag")),
    UnicodeString(TEXT_OF(REGISTRY_GROUPS L"RequiresSemanticValidation")),
    UnicodeString(TEXT_OF(REGISTRY_DICTIONARY L"ElementUL")),
    UnicodeString(TEXT_OF(REGISTRY_GROUPS L"Key")),
};

QuerySet querySet(const QueryTexts& texts, const wchar_t* elementName, const wchar_t* elementLength,
                  const wchar_t* groupName) {
  return {&texts.elementDeclarations,
          &texts.groupDeclarations,
          &texts.groupElementProperties,
          &texts.groupAttributeProperties,
          &texts.requiredStatus,
          &texts.distinguishedValue,
          &texts.localTag,
          &texts.semanticsValidation,
          &texts.elementUL,
          &texts.groupKey,
          elementName,
          elementLength,
          groupName};
}

}  // namespace

const WideString registryMultiplexNamespace = REGISTRY_BASE L"/schemas/434/2006/multiplex/S377M/2004";
const WideString urnMultiplexNamespace = L"urn:SMPTE:S377M";

QuerySet queriesOf(SchemaFlavour flavour) {
  if (flavour == SchemaFlavour::RegistryUri) {
    return querySet(registryTexts, TEXT_OF(REGISTRY_DICTIONARY L"ElementName"), TEXT_OF(REGISTRY_DICTIONARY L"Length"),
                    TEXT_OF(REGISTRY_GROUPS L"Name"));
  }
  return querySet(urnTexts, TEXT_OF(URN_DICTIONARY L"ElementName"), TEXT_OF(URN_DICTIONARY L"Length"),
                  TEXT_OF(URN_GROUPS L"Name"));
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
