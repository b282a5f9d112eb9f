// The key of a group declaration, and which groups are passed over. Entry point: readGroupKey().

#include "GroupKeys.h"

#include "DocumentAccess.h"
#include "LabelDesignator.h"
#include "SourceNames.h"
#include "XPathEvaluation.h"

#include <Exceptions/Exceptions.h>

namespace MXF::Tessel::MetaMetadata::Loading {

bool isAbstractGroup(const xercesc::DOMElement& group) {
  return attributeOf(group, u"abstract") == L"true";
}

Templates::auto_ptr<KLV::Key> readGroupKey(const XSDLoaderImplData& data, xercesc::DOMElement& group) {
  if (!data.withAbstractGroups && isAbstractGroup(group)) return nullptr;
  const auto text = firstText(group, data.queries.groupKey->utf16(), data.nsResolver);
  if (!text) {
    throw Exceptions::SchemeDataMissingException(L"MetaMetadataSet without Key declaration.", SourceNames::loaderImpl,
                                                 __LINE__);
  }
  checkULDesignator(*text);
  return std::make_unique<KLV::Key>(text->c_str(), textForm);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
