#pragma once

#include <XMLUtils/UnicodeString.h>

namespace MXF::Tessel::MetaMetadata::Loading {

/// The XPath queries by which the passes find declarations and annotations, in one flavour's spelling. The texts are
/// static; the set only points at them.
struct QuerySet {
  const XMLUtils::UnicodeString* elementDeclarations = nullptr;
  const XMLUtils::UnicodeString* groupDeclarations = nullptr;
  const XMLUtils::UnicodeString* groupElementProperties = nullptr;
  const XMLUtils::UnicodeString* groupAttributeProperties = nullptr;
  const XMLUtils::UnicodeString* requiredStatus = nullptr;
  const XMLUtils::UnicodeString* distinguishedValue = nullptr;
  const XMLUtils::UnicodeString* localTag = nullptr;
  const XMLUtils::UnicodeString* semanticsValidation = nullptr;
  const XMLUtils::UnicodeString* elementUL = nullptr;
  const XMLUtils::UnicodeString* groupKey = nullptr;
  const wchar_t* elementName = nullptr;
  const wchar_t* elementLength = nullptr;
  const wchar_t* groupName = nullptr;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
