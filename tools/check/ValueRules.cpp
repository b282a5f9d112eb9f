// Distinguished values that were declared and are not in the dictionary, or not as they were written. An attribute does
// not tell whether it was declared without a value or with one that has no text form, nor from what text its value was
// read, so the declarations are looked at again.

#include "check/RuleFamilies.h"
#include "check/ValueForms.h"
#include "text/ElementText.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"
#include "text/ValueText.h"

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t mostShown = 80;  ///< Characters of a text in a message.

/// The distinguished value that an attribute is declared with, or null.
const DeclarationScan::WrittenValue* writtenValueOf(const MetaMetadata::MetaAttribute& attribute,
                                                    const Subject& subject) {
  const Place place = placeAt(attribute.origin());
  const auto& values = subject.scanOf(place.path).values;
  const auto value = values.find({place.line, place.column});
  return value == values.end() ? nullptr : &value->second;
}

std::string valueOf(const Subject::OwnAttribute& own) {
  return "The distinguished value of " + quotedName(own.attribute->metaElement()) + " in set " + quotedName(*own.set);
}

/// Blanks are shown, since they may be the fault.
std::string quotedText(const Templates::WideString& text) {
  const std::u32string all = printable(text);
  return '"' + encode(all.substr(0, mostShown)) + (all.size() > mostShown ? "..." : "") + '"';
}

/// In what way the value that was loaded is not the one that was written; empty when it is.
std::string doubtAbout(const DeclarationScan::WrittenValue& written, const MetaMetadata::MetaAttribute& attribute) {
  const Types::BaseType* value = attribute.distinguishedValue();
  if (value == nullptr) return written.read.empty() ? "is empty, and none was read" : "";  // else it is lost
  const std::string read = " and was read as " + encode(valueText(*value));
  if (withoutExtraBlanks(printable(written.read)) != withoutExtraBlanks(printable(written.whole)))
    return "is written " + quotedText(written.whole) + ", but only " + quotedText(written.read) +
           " of it is looked at," + read;
  if (ValueForms::isWritten(written.read, attribute.metaElement(), *value)) return "";
  return "is written " + quotedText(written.read) + read;
}

}  // namespace

Findings findLostValues(const Subject& subject) {
  Findings findings;
  for (const Subject::OwnAttribute& own : subject.ownAttributes()) {
    if (own.attribute->distinguishedValue() != nullptr) continue;
    const DeclarationScan::WrittenValue* written = writtenValueOf(*own.attribute, subject);
    if (written == nullptr || written->read.empty()) continue;
    const MetaMetadata::MetaElement& element = own.attribute->metaElement();
    findings.push_back({placeAt(own.attribute->origin()),
                        valueOf(own) + " is ignored, as type " + encode(dataTypeText(element)) +
                            " has no text form: " + encode(withoutExtraBlanks(printable(written->read)))});
  }
  return findings;
}

Findings findDoubtfulValues(const Subject& subject) {
  Findings findings;
  for (const Subject::OwnAttribute& own : subject.ownAttributes()) {
    const DeclarationScan::WrittenValue* written = writtenValueOf(*own.attribute, subject);
    const std::string doubt = written == nullptr ? "" : doubtAbout(*written, *own.attribute);
    if (doubt.empty()) continue;
    findings.push_back({placeAt(own.attribute->origin()), valueOf(own) + ' ' + doubt + '.'});
    if (written->read.empty())
      findings.back().remedy = "Write the value, or take the annotation out: an empty one is none.";
    if (!written->read.empty()) findings.back().remedy = ValueForms::formOf(own.attribute->metaElement());
  }
  return findings;
}

}  // namespace MXF::Tessel::Tool
