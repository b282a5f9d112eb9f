// The annotations of a property declaration, read by the four queries for them.

#include "PropertyAnnotations.h"

#include "XPathEvaluation.h"

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;

PropertyAnnotations readPropertyAnnotations(const XSDLoaderImplData& data, xercesc::DOMElement& declaration) {
  const auto read = [&](const XMLUtils::UnicodeString* query) {
    return firstText(declaration, query->utf16(), data.nsResolver);
  };
  return {read(data.queries.requiredStatus), read(data.queries.distinguishedValue).value_or(WideString()),
          read(data.queries.localTag), read(data.queries.semanticsValidation).value_or(WideString())};
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
