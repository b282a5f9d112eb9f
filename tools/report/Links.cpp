#include "report/Links.h"

#include "loading/Failure.h"
#include "text/ElementText.h"
#include "text/IdentifierForm.h"
#include "text/Unicode.h"

#include <MetaMetadata/PropertyKeys.h>

namespace MXF::Tessel::Tool {

using MetaMetadata::MetaElement;
using MetaMetadata::MetaMetadataSet;

namespace {

TemplateData link(const std::u32string& anchor, const std::u32string& name, bool isAbstract) {
  TemplateData data;
  data["anchor"] = templateText(anchor);
  data["name"] = templateText(name);
  data["abstract"] = TemplateData(isAbstract);
  return data;
}

}  // namespace

std::u32string anchorOf(const MetaElement& element) {
  return U"element-" + printable(element.universalLabel().toString(textForm));
}

std::u32string anchorOf(const MetaMetadataSet& set) {
  return U"set-" + printable(set.key().toString(textForm));
}

TemplateData linkTo(const MetaElement& element) {
  return link(anchorOf(element), nameText(element), false);
}

TemplateData linkTo(const MetaMetadataSet& set) {
  return link(anchorOf(set), nameText(set), isAbstract(set));
}

TemplateData linksTo(const DictionaryIndex::Sets& sets) {
  TemplateList links;
  for (const MetaMetadataSet* set : sets) links.push_back(linkTo(*set));
  return itemsOrNothing(links);
}

TemplateData originOf(const MetaMetadata::PropertyMap& declared) {
  return textOrNothing(printable(shownPath(declared.origin().toString())));
}

}  // namespace MXF::Tessel::Tool
