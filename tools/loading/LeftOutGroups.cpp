#include "loading/LeftOutGroups.h"

#include "loading/Annotations.h"
#include "loading/SchemaDocument.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMElement.hpp>

namespace MXF::Tessel::Tool {

std::string whyGroupsAreLeftOut(const Failure& failure, const Templates::WideString& flavour) {
  const Annotations& annotations = annotationsOf(flavour);
  std::string groupWithoutKey;
  if (failure.place.isKnown()) {
    lookInto(failure.place.path(), [&](const xercesc::DOMDocument& document) {
      const xercesc::DOMElement* group = elementAt(document, failure.place.line(), failure.place.column());
      if (group == nullptr || !isNamed(*group, u"element") || annotationOf(*group, annotations.groupKey)) return;
      groupWithoutKey = inQuotes(XMLUtils::toWstring(group->getAttribute(u"name")));
    });
  }
  if (!groupWithoutKey.empty()) {
    return "group " + groupWithoutKey + " has no key of the " + annotations.flavour + " flavour";
  }
  return "they cannot be loaded: " + encode(withoutExtraBlanks(printable(messageWithoutPlace(failure)))) + " [" +
         failure.className + "]";
}

}  // namespace MXF::Tessel::Tool
