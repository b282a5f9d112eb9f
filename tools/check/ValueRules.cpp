// Distinguished values that were declared and are not in the dictionary. An attribute does not tell whether it was
// declared without a value or with one that has no text form, so the declarations are looked at again.

#include "check/RuleFamilies.h"
#include "text/ElementText.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

namespace MXF::Tessel::Tool {

Findings findLostValues(const Subject& subject) {
  Findings findings;
  for (const auto& [set, attribute] : subject.ownAttributes()) {
    if (attribute->distinguishedValue() != nullptr) continue;
    const Place place = placeAt(attribute->origin());
    const auto& values = subject.scanOf(place.path).values;
    const auto value = values.find({place.line, place.column});
    if (value == values.end() || value->second.read.empty()) continue;
    const MetaMetadata::MetaElement& element = attribute->metaElement();
    findings.push_back({place, "The distinguished value of " + quotedName(element) + " in set " + quotedName(*set) +
                                   " is ignored, as type " + encode(dataTypeText(element)) +
                                   " has no text form: " + encode(withoutExtraBlanks(printable(value->second.read)))});
  }
  return findings;
}

}  // namespace MXF::Tessel::Tool
