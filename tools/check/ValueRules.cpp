// Distinguished values that were declared and are not in the dictionary. An attribute does not tell whether it was
// declared without a value or with one that has no text form, so the declarations are looked at again.

#include "check/RuleFamilies.h"
#include "loading/AnnotatedValues.h"
#include "text/ElementText.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

namespace MXF::Tessel::Tool {

Findings findLostValues(const Subject& subject) {
  Findings findings;
  std::map<Templates::WideString, std::map<Position, Templates::WideString>> valuesByPath;
  for (const auto& [set, attribute] : subject.ownAttributes()) {
    if (attribute->distinguishedValue() != nullptr) continue;
    const Place place = placeAt(attribute->origin());
    const auto [entry, isNew] = valuesByPath.try_emplace(place.path);
    if (isNew) entry->second = annotatedValues(place.path, subject.outcome().targetNamespace);
    const auto value = entry->second.find({place.line, place.column});
    if (value == entry->second.end()) continue;
    const MetaMetadata::MetaElement& element = attribute->metaElement();
    findings.push_back({place, "The distinguished value of " + quotedName(element) + " in set " + quotedName(*set) +
                                   " is ignored, as type " + encode(dataTypeText(element)) +
                                   " has no text form: " + encode(withoutExtraBlanks(printable(value->second)))});
  }
  return findings;
}

}  // namespace MXF::Tessel::Tool
