#include "text/AttributeText.h"

#include "text/Unicode.h"
#include "text/ValueText.h"

#include <MetaMetadata/AttributeRequiredStatus.h>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaAttribute;

std::u32string tagText(const MetaAttribute& attribute) {
  const Types::LocalTag* tag = attribute.localTag();
  return tag == nullptr ? std::u32string()
                        : printable(tag->toString(Types::StringRepresentationEncodingType::DottedHex));
}

std::u32string statusText(const MetaAttribute& attribute) {
  return printable(MetaMetadata::AttributeRequiredStatus::instance().toString(attribute.requiredStatus()));
}

std::u32string distinguishedText(const MetaAttribute& attribute) {
  const Types::BaseType* value = attribute.distinguishedValue();
  return value == nullptr ? std::u32string() : valueText(*value);
}

}  // namespace MXF::Tessel::Tool
