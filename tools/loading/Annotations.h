#pragma once

#include <Templates/Containers.h>

#include <string>
#include <string_view>
#include <vector>

namespace MXF::Tessel::Tool {

/// The target namespaces of multiplex schemas, which name the flavours.
inline constexpr const wchar_t* urnMultiplexNamespace = L"urn:SMPTE:S377M";
inline constexpr const wchar_t* registryMultiplexNamespace =
    L"http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004";

/// The sources by which a flavour's annotations are told apart, each as an appinfo has it.
struct Annotations {
  const char* flavour;  ///< "URN" or "registry".
  const wchar_t* multiplexNamespace;
  std::u16string_view ofElements;  ///< What the sources of annotations of elements begin with.
  std::u16string_view ofGroups;    ///< The same for those of groups and their properties.
  std::u16string_view elementLabel, elementName, elementLength, elementDefinition;
  std::u16string_view groupKey, groupName, groupComments;
  std::u16string_view requiredStatus, distinguishedValue, localTag, semanticsValidation;

  /// All of the above that are sources, those included that are for readers of the schema only.
  [[nodiscard]] std::vector<std::u16string_view> sources() const;
};

extern const Annotations urnAnnotations;
extern const Annotations registryAnnotations;

/// @param flavour  its multiplex namespace.
const Annotations& annotationsOf(const Templates::WideString& flavour);

/// Those of the other flavour than the given one.
const Annotations& otherAnnotations(const Annotations& annotations);

/// A source as UTF-8.
std::string narrowSource(std::u16string_view source);

}  // namespace MXF::Tessel::Tool
