#include "loading/DuplicateDeclarations.h"

#include "loading/Annotations.h"
#include "loading/SchemaDocument.h"
#include "text/IdentifierForm.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>
#include <XMLUtils/SourcePosition.h>

#include <algorithm>
#include <memory>

namespace MXF::Tessel::Tool {

using MetaMetadata::Dictionary;
using Templates::WideString;
using Utils::SourceLocation;

namespace {

PlacedNote declaredHere(const SourceLocation& place, const WideString& name) {
  return {place, '"' + narrow(name) + "\" is declared here"};
}

/// Whether two places are one, in one file by whatever paths.
bool isSamePlace(const SourceLocation& a, const SourceLocation& b) {
  return a.line() == b.line() && a.column() == b.column() && isSameFile(a.path(), b.path());
}

std::optional<PlacedNote> inDictionary(const Failure& failure, const Dictionary& dictionary) {
  const auto isNamed = [&](const auto& identifier) { return identifier.toString(textForm) == failure.message; };
  if (failure.className == "MetaElementAlreadyLoaded") {
    for (auto entry = dictionary.metaElementBegin(); entry != dictionary.metaElementEnd(); ++entry) {
      const MetaMetadata::MetaElement& element = *entry->second;
      if (!isNamed(element.universalLabel())) continue;
      return declaredHere(element.origin(), element.getProperty(MetaMetadata::PropertyKeys::name));
    }
    return std::nullopt;
  }
  for (auto entry = dictionary.metaMetadataSetBegin(); entry != dictionary.metaMetadataSetEnd(); ++entry) {
    const MetaMetadata::MetaMetadataSet& set = entry->second;
    if (isNamed(set.key())) return declaredHere(set.origin(), set.getProperty(MetaMetadata::PropertyKeys::name));
  }
  return std::nullopt;
}

/// The message has capital digits.
bool isSameIdentifier(const WideString& text, const WideString& message) {
  const auto isSame = [](wchar_t a, wchar_t b) { return (a >= L'a' && a <= L'f' ? a - L'a' + L'A' : a) == b; };
  return std::equal(text.begin(), text.end(), message.begin(), message.end(), isSame);
}

/// The first other declaration of the document with that label or key.
std::optional<PlacedNote> inDocument(const Failure& failure, const Annotations& annotations) {
  const bool isElement = failure.className == "MetaElementAlreadyLoaded";
  const std::u16string_view identifier = isElement ? annotations.elementLabel : annotations.groupKey;
  const std::u16string_view name = isElement ? annotations.elementName : annotations.groupName;
  std::optional<PlacedNote> found;
  lookInto(failure.place.path(), [&](const xercesc::DOMDocument& document) {
    for (const auto* declaration = document.getDocumentElement()->getFirstElementChild();
         declaration != nullptr && !found; declaration = declaration->getNextElementSibling()) {
      const auto text = annotationOf(*declaration, identifier);
      if (!text || !isSameIdentifier(*text, failure.message)) continue;
      const XMLUtils::SourcePosition position = XMLUtils::positionOf(*declaration);
      const SourceLocation place(std::make_shared<const WideString>(failure.place.path()), position.line,
                                 position.column);
      if (!isSamePlace(place, failure.place)) {
        found = declaredHere(place, annotationOf(*declaration, name).value_or(WideString()));
      }
    }
  });
  return found;
}

}  // namespace

void addFirstDeclaration(const Failure& failure, const LoadOutcome& outcome, Explanation& explanation) {
  const bool isDuplicate =
      failure.className == "MetaElementAlreadyLoaded" || failure.className == "MetaMetadataSetAlreadyLoaded";
  if (!isDuplicate || !failure.place.isKnown()) return;
  std::optional<PlacedNote> first = inDictionary(failure, outcome.dictionary);
  if (first && isSamePlace(first->place, failure.place)) {
    const WideString path = shownPath(first->place.path());
    explanation.remedy = "Leave one of the two out: this file is given twice" +
                         (path == shownPath(failure.place.path()) ? "." : ", before as " + narrow(path) + ".");
    return;
  }
  if (!first) {
    first = inDocument(failure, annotationsOf(outcome.targetNamespace));
    if (first) explanation.remedy = "Give one of the two another, or leave one out.";
  }
  if (first) explanation.related.push_back(*first);
}

}  // namespace MXF::Tessel::Tool
