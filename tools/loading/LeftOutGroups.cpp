// What a scheme loses, and why, when it cannot be loaded with abstract groups. Entry point: findLeftOutGroups(); all else
// is local.

#include "loading/LeftOutGroups.h"

#include "loading/Annotations.h"
#include "loading/ImportedSchemas.h"
#include "loading/SchemaDocument.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMElement.hpp>

#include <memory>
#include <string_view>

namespace MXF::Tessel::Tool {

using Templates::WideString;
using xercesc::DOMDocument;
using xercesc::DOMElement;

namespace {

bool hasAbstractGroups(const WideString& path, const Annotations& annotations) {
  bool found = false;
  lookIntoWithImports(path, [&](const DOMDocument& document) {
    forEachChild(*document.getDocumentElement(), [&](const DOMElement& declaration) {
      found = found || (isNamed(declaration, u"element") && !annotationOf(declaration, annotations.elementLabel) &&
                        isDeclaredAbstract(declaration));
    });
    return found;
  });
  return found;
}

WideString localPart(const WideString& name) {
  return name.substr(name.find(L':') + 1);  // all of it when there is no colon
}

/// A group and its type as it writes it.
struct GroupOfType {
  WideString name;
  WideString type;
};

/// The group of a type in the schema that declares the type, whatever its prefix there.
/// @param type  without a prefix.
std::optional<GroupOfType> groupOfType(const WideString& path, const WideString& type) {
  std::optional<GroupOfType> group;
  lookIntoWithImports(path, [&](const DOMDocument& document) {
    bool isDeclared = false;
    forEachChild(*document.getDocumentElement(), [&](const DOMElement& declaration) {
      const WideString name = XMLUtils::toWstring(declaration.getAttribute(u"name"));
      if (isNamed(declaration, u"complexType")) isDeclared = isDeclared || name == type;
      if (group || !isNamed(declaration, u"element")) return;
      const WideString typeOfGroup = XMLUtils::toWstring(declaration.getAttribute(u"type"));
      if (localPart(typeOfGroup) == type) group = {name, typeOfGroup};
    });
    return isDeclared;
  });
  return group;
}

/// A base type of which the loader found no group, and the type that extends it.
struct BaseWithoutGroup {
  WideString base;  ///< As the schema has it; empty when the failure is another.
  WideString heir;  ///< Without a prefix.
};

BaseWithoutGroup baseWithoutGroup(const Failure& failure) {
  constexpr std::wstring_view start = L"Definition of type ";
  constexpr std::wstring_view middle = L", base type for ";
  constexpr std::wstring_view end = L", was not found";
  const WideString& message = failure.message;
  const std::size_t found = message.find(middle);
  if (message.compare(0, start.size(), start) != 0 || found == WideString::npos) return {};
  const std::size_t heir = found + middle.size();
  return {message.substr(start.size(), found - start.size()),
          localPart(message.substr(heir, message.rfind(end) - heir))};
}

/// Where the base is written, which may be in an import; the failure is placed at a group of the scheme, though that may
/// have the base by its own base only. Not known when it is not found.
Utils::SourceLocation placeOf(const BaseWithoutGroup& missing, const WideString& path) {
  Utils::SourceLocation place;
  lookIntoWithImports(path, [&](const DOMDocument& document) {
    const auto look = [&](const DOMElement& extension) {
      if (place.isKnown() || XMLUtils::toWstring(extension.getAttribute(u"base")) != missing.base) return;
      const auto file = std::make_shared<const WideString>(XMLUtils::toWstring(document.getDocumentURI()));
      const DeclarationPosition position = declarationPositionOf(extension);
      place = {file, position.first, position.second};
    };
    forEachChild(*document.getDocumentElement(), [&](const DOMElement& type) {
      if (!isNamed(type, u"complexType") || XMLUtils::toWstring(type.getAttribute(u"name")) != missing.heir) return;
      forEachChild(type, [&](const DOMElement& content) { forEachChild(content, look); });
    });
    return place.isKnown();
  });
  return place;
}

/// The group without a key that a failure is about, in quotation marks; empty for other failures.
std::string groupWithoutKey(const Failure& failure, const Annotations& annotations) {
  std::string name;
  if (!failure.place.isKnown()) return name;
  lookInto(failure.place.path(), [&](const DOMDocument& document) {
    const DOMElement* group = elementAt(document, failure.place.line(), failure.place.column());
    if (group == nullptr || !isNamed(*group, u"element") || annotationOf(*group, annotations.groupKey)) return;
    name = inQuotes(XMLUtils::toWstring(group->getAttribute(u"name")));
  });
  return name;
}

constexpr const char* ofAllBases =
    "the abstract groups of a scheme are loaded only if all of them, and the groups of all base types, have keys.";

}  // namespace

std::string remedyOfSpelling(const WideString& path, const WideString& base) {
  const auto group = groupOfType(path, localPart(base));
  if (!group || group->type == base) return "";
  return "Write the base as " + inQuotes(group->type) + ", just as group " + inQuotes(group->name) +
         " writes its type: the group of a base is found by the same prefix and name.";
}

std::optional<LeftOutGroups> findLeftOutGroups(const WideString& path, const Failure& failure,
                                               const WideString& flavour) {
  const Annotations& annotations = annotationsOf(flavour);
  LeftOutGroups groups{failure, "abstract groups", "", "", hasAbstractGroups(path, annotations)};
  const BaseWithoutGroup missing = baseWithoutGroup(failure);
  const WideString& base = missing.base;
  if (!base.empty()) {
    const Utils::SourceLocation place = placeOf(missing, path);
    if (place.isKnown()) groups.failure.place = place;
    groups.why = "no group has the base type " + inQuotes(base) + " of " + inQuotes(missing.heir);
    groups.remedy = remedyOfSpelling(path, base);
    if (!groups.isAbstract && groups.remedy.empty()) return std::nullopt;
    if (!groups.isAbstract) groups.what = "bases";
    if (groups.remedy.empty()) groups.remedy = std::string("Declare a group of that type, with a key: ") + ofAllBases;
    return groups;
  }
  if (!groups.isAbstract) return std::nullopt;
  const std::string keyless = groupWithoutKey(failure, annotations);
  groups.why = keyless.empty()
                   ? "they cannot be loaded: " + encode(withoutExtraBlanks(printable(messageWithoutPlace(failure)))) +
                         " [" + failure.className + "]"
                   : "group " + keyless + " has no key of the " + annotations.flavour + " flavour";
  return groups;
}

}  // namespace MXF::Tessel::Tool
