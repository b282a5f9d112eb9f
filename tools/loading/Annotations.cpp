#include "loading/Annotations.h"

namespace MXF::Tessel::Tool {

// Adjacent literals join at compile time; constants would not.
// NOLINTBEGIN(cppcoreguidelines-macro-usage)
#define URN_DICTIONARY u"urn:SMPTE:MXF:XMLInterface:Dictionary:"
#define URN_GROUPS u"urn:SMPTE:MXF:XMLInterface:Groups:"
#define REGISTRY_DICTIONARY u"http://www.smpte-ra.org/schemas/434/Dictionary/"
#define REGISTRY_GROUPS u"http://www.smpte-ra.org/schemas/434/Groups/"
// NOLINTEND(cppcoreguidelines-macro-usage)

const Annotations urnAnnotations = {
    "URN",
    urnMultiplexNamespace,
    URN_DICTIONARY,
    URN_GROUPS,
    URN_DICTIONARY u"ElementUL",
    URN_DICTIONARY u"ElementName",
    URN_DICTIONARY u"Length",
    URN_DICTIONARY u"DataElementDefinition",
    URN_GROUPS u"Key",
    URN_GROUPS u"Name",
    URN_GROUPS u"Comments",
    URN_GROUPS u"MetadataElementRequiredStatus",
    URN_GROUPS u":DistinguishedValue",  // two colons: so the schemas of this flavour write it
    URN_GROUPS u"LocalTag",
    URN_GROUPS u"RequiresSemanticsValidation",
};

const Annotations registryAnnotations = {
    "registry",
    registryMultiplexNamespace,
    REGISTRY_DICTIONARY,
    REGISTRY_GROUPS,
    REGISTRY_DICTIONARY u"ElementUL",
    REGISTRY_DICTIONARY u"ElementName",
    REGISTRY_DICTIONARY u"Length",
    REGISTRY_DICTIONARY u"DataElementDefinition",
    REGISTRY_GROUPS u"Key",
    REGISTRY_GROUPS u"Name",
    REGISTRY_GROUPS u"Comments",
    REGISTRY_GROUPS u"PropertyRequiredStatus",
    REGISTRY_GROUPS u"DistinguishedValue",
    REGISTRY_GROUPS u"LocalTag",
    REGISTRY_GROUPS u"RequiresSemanticValidation",
};

std::vector<std::u16string_view> Annotations::sources() const {
  return {elementLabel,  elementName,    elementLength,      elementDefinition, groupKey,           groupName,
          groupComments, requiredStatus, distinguishedValue, localTag,          semanticsValidation};
}

const Annotations& annotationsOf(const Templates::WideString& flavour) {
  return flavour == urnMultiplexNamespace ? urnAnnotations : registryAnnotations;
}

const Annotations& otherAnnotations(const Annotations& annotations) {
  return &annotations == &urnAnnotations ? registryAnnotations : urnAnnotations;
}

std::string narrowSource(std::u16string_view source) {
  std::string text;
  for (const char16_t character : source) text += static_cast<char>(character);
  return text;
}

}  // namespace MXF::Tessel::Tool
