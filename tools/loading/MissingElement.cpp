// Why a reference leads to no element: its prefix, or the element is not there. Entry points: remedyOfMissingElement() and
// isForWantOfPassedOver(); all else is local.

#include "loading/MissingElement.h"

#include "loading/Annotations.h"
#include "loading/SchemaDocument.h"
#include "text/Similarity.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string_view>

namespace MXF::Tessel::Tool {

using Templates::WideString;

namespace {

/// The namespaces that the root of a document binds prefixes to; the loader knows no other bindings.
std::map<WideString, WideString> boundPrefixes(const WideString& path) {
  constexpr std::wstring_view start = L"xmlns:";
  std::map<WideString, WideString> namespaces;
  lookInto(path, [&](const xercesc::DOMDocument& document) {
    const xercesc::DOMNamedNodeMap* attributes = document.getDocumentElement()->getAttributes();
    for (XMLSize_t i = 0; i < attributes->getLength(); ++i) {
      const xercesc::DOMNode& attribute = *attributes->item(i);
      const WideString name = XMLUtils::toWstring(attribute.getNodeName());
      if (name.compare(0, start.size(), start) != 0) continue;
      namespaces[name.substr(start.size())] = XMLUtils::toWstring(attribute.getNodeValue());
    }
  });
  return namespaces;
}

/// Calls the action with namespace and XML name of each element that has both.
template <class Action>
void forEachXmlName(const MetaMetadata::Dictionary& dictionary, const Action& action) {
  for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
    const auto& properties = entry->second->properties();
    const auto tag = properties.find(MetaMetadata::PropertyKeys::xmlTagName);
    const auto uri = properties.find(MetaMetadata::PropertyKeys::xmlNamespaceURI);
    if (tag != properties.end() && uri != properties.end()) action(uri->second, tag->second);
  }
}

/// The namespaces in which the dictionary has an element of that XML name.
std::set<WideString> namespacesOf(const WideString& name, const MetaMetadata::Dictionary& dictionary) {
  std::set<WideString> namespaces;
  forEachXmlName(dictionary, [&](const WideString& uri, const WideString& known) {
    if (known == name) namespaces.insert(uri);
  });
  return namespaces;
}

/// The XML name in the namespace that a given one is most likely mistyped for; nothing when none is near.
std::optional<WideString> similarName(const WideString& uri, const WideString& name,
                                      const MetaMetadata::Dictionary& dictionary) {
  std::optional<WideString> nearest;
  std::size_t fewest = 0;
  const std::u32string given = codePoints(name);
  forEachXmlName(dictionary, [&](const WideString& space, const WideString& tag) {
    const std::u32string known = codePoints(tag);
    if (space != uri || !isSimilar(given, known)) return;
    const std::size_t edits = editDistance(given, known);
    if (nearest && edits >= fewest) return;
    nearest = tag;
    fewest = edits;
  });
  return nearest;
}

/// @param prefix  that the reference has; may be empty.
std::string howToReach(const WideString& uri, const WideString& prefix,
                       const std::map<WideString, WideString>& prefixes) {
  const auto bound =
      std::find_if(prefixes.begin(), prefixes.end(), [&](const auto& binding) { return binding.second == uri; });
  if (bound != prefixes.end()) return "write the reference with the prefix " + narrow(bound->first);
  return "bind " + (prefix.empty() ? "a prefix" : narrow(prefix)) + " to that at the root of the schema";
}

/// What to do about an element that a dictionary declares without a label, so that it is none: a sentence; empty when no
/// dictionary that was loaded does so.
std::string remedyOfMissingLabel(const WideString& uri, const WideString& name, const LoadOutcome& outcome) {
  const std::u16string_view label = annotationsOf(outcome.targetNamespace).elementLabel;
  std::string remedy;
  for (const LoadRecord& load : outcome.loads) {
    if (load.file.kind != FileKind::Dictionary || load.failure) continue;
    lookInto(Utils::stringToWstring(load.file.path.c_str()), [&](const xercesc::DOMDocument& document) {
      const xercesc::DOMElement& schema = *document.getDocumentElement();
      if (XMLUtils::toWstring(schema.getAttribute(u"targetNamespace")) != uri) return;
      forEachChild(schema, [&](const xercesc::DOMElement& element) {
        if (!remedy.empty() || !isNamed(element, u"element") || annotationOf(element, label)) return;
        if (XMLUtils::toWstring(element.getAttribute(u"name")) != name) return;
        const DeclarationPosition position = declarationPositionOf(element);
        remedy = "It is declared at " + load.file.path + ":" + std::to_string(position.first) + ":" +
                 std::to_string(position.second) + " without a label: give it one there, in the annotation " +
                 narrowSource(label) + ".";
      });
    });
  }
  return remedy;
}

/// Whether a dictionary declares an element of that name, in whichever flavour.
bool declares(const SchemaFile& dictionary, const WideString& uri, const WideString& name) {
  bool isDeclared = false;
  lookInto(Utils::stringToWstring(dictionary.path.c_str()), [&](const xercesc::DOMDocument& document) {
    const xercesc::DOMElement& schema = *document.getDocumentElement();
    if (XMLUtils::toWstring(schema.getAttribute(u"targetNamespace")) != uri) return;
    forEachChild(schema, [&](const xercesc::DOMElement& element) {
      if (isNamed(element, u"element") && XMLUtils::toWstring(element.getAttribute(u"name")) == name) isDeclared = true;
    });
  });
  return isDeclared;
}

std::string remedyOfAbsence(const LoadOutcome& outcome) {
  if (std::any_of(outcome.loads.begin(), outcome.loads.end(), [](const LoadRecord& before) {
        return before.failure && before.file.kind == FileKind::Dictionary;
      })) {
    return "First correct what failed to load before: it may declare the element.";
  }
  if (outcome.dictionary.metaElementBegin() == outcome.dictionary.metaElementEnd()) {
    return "Groups refer to elements, and none are loaded: give their schemas with --dictionary before it.";
  }
  return "Load the schema that declares the element before this one, or correct the reference.";
}

}  // namespace

std::string remedyOfMissingElement(const Failure& failure, const WideString& reference, const LoadOutcome& outcome) {
  const std::map<WideString, WideString> prefixes = boundPrefixes(failure.place.path());
  const std::size_t colon = reference.find(L':');
  const bool hasPrefix = colon != WideString::npos;
  const WideString prefix = hasPrefix ? reference.substr(0, colon) : WideString();
  const auto binding = hasPrefix ? prefixes.find(prefix) : prefixes.end();

  std::string text = "The reference has no prefix, and no default namespace counts.";
  if (hasPrefix) text = "The prefix " + narrow(prefix) + " is not bound at the root of the schema.";
  if (binding != prefixes.end()) text = "Here " + narrow(prefix) + " stands for " + inQuotes(binding->second) + ".";

  const WideString name = reference.substr(hasPrefix ? colon + 1 : 0);
  if (binding != prefixes.end()) {
    std::string remedy = remedyOfMissingLabel(binding->second, name, outcome);
    if (!remedy.empty()) return remedy;
    if (const auto similar = similarName(binding->second, name, outcome.dictionary); similar && *similar != name)
      return "Did you mean " + inQuotes(prefix + L":" + *similar) + "? " + remedyOfAbsence(outcome);
  }
  const std::set<WideString> declaring = namespacesOf(name, outcome.dictionary);
  if (declaring.empty() || (binding != prefixes.end() && declaring.count(binding->second) > 0)) {
    return remedyOfAbsence(outcome) + ' ' + text;
  }
  return text + " An element " + inQuotes(name) + " is loaded in the namespace " + inQuotes(*declaring.begin()) + ": " +
         howToReach(*declaring.begin(), prefix, prefixes) + ".";
}

bool isForWantOfPassedOver(const Failure& failure, const LoadOutcome& outcome) {
  constexpr std::wstring_view start = L"The ";
  if (failure.className != "NotFound" || failure.message.compare(0, start.size(), start) != 0) return false;
  const WideString reference =
      failure.message.substr(start.size(), failure.message.find(L' ', start.size()) - start.size());
  const std::size_t colon = reference.find(L':');
  if (colon == WideString::npos) return false;
  const std::map<WideString, WideString> prefixes = boundPrefixes(failure.place.path());
  const auto binding = prefixes.find(reference.substr(0, colon));
  if (binding == prefixes.end()) return false;
  return std::any_of(outcome.loads.begin(), outcome.loads.end(), [&](const LoadRecord& load) {
    return load.isPassedOver && load.file.kind == FileKind::Dictionary &&
           declares(load.file, binding->second, reference.substr(colon + 1));
  });
}

}  // namespace MXF::Tessel::Tool
