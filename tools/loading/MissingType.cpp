// Why a type is not found: the group names none, or its declaration is brought in by what is not followed. Entry point:
// remedyOfMissingType(); all else is local.

#include "loading/MissingType.h"

#include "loading/SchemaDocument.h"
#include "text/Unicode.h"

#include <XMLUtils/TextConversion.h>

namespace MXF::Tessel::Tool {

using xercesc::DOMDocument;
using xercesc::DOMElement;

namespace {

/// What to do about a group that names no type; empty when it names one.
std::string remedyOfNamelessType(const DOMElement& group) {
  if (!isNamed(group, u"element") || group.hasAttribute(u"type")) return "";
  bool isInside = false;
  forEachChild(group, [&](const DOMElement& child) { isInside = isInside || isNamed(child, u"complexType"); });
  return isInside
             ? "The type stands inside the group: move its xs:complexType to the top level of the schema, give it a "
               "name, and give the group this name as its type."
             : "Give the group a type: the name of an xs:complexType at the top level of the schema.";
}

/// What brings in declarations by a way that the loader does not follow: a sentence; empty when the schema has none.
std::string notFollowed(const DOMElement& schema) {
  std::string text;
  forEachChild(schema, [&](const DOMElement& child) {
    const bool bringsIn = isNamed(child, u"include") || isNamed(child, u"redefine") || isNamed(child, u"override");
    if (!text.empty() || !bringsIn) return;
    text = "The " + narrow(XMLUtils::toWstring(child.getNodeName())) + " at line " +
           std::to_string(declarationPositionOf(child).first) +
           " is not followed: declare the type in this file, or in "
           "a schema of another namespace that it imports.";
  });
  return text;
}

}  // namespace

std::string remedyOfMissingType(const Failure& failure) {
  std::string remedy;
  if (failure.place.isKnown()) {
    lookInto(failure.place.path(), [&](const DOMDocument& document) {
      const DOMElement* atFault = elementAt(document, failure.place.line(), failure.place.column());
      if (atFault != nullptr) remedy = remedyOfNamelessType(*atFault);
      if (remedy.empty()) remedy = notFollowed(*document.getDocumentElement());
    });
  }
  return remedy.empty() ? "Declare the type, or import the schema that does with its schemaLocation." : remedy;
}

}  // namespace MXF::Tessel::Tool
