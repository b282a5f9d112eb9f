#pragma once

#include "QuerySet.h"

#include <MetaMetadata/Dictionary.h>
#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>

namespace MXF::Tessel::MetaMetadata::Loading {

struct XSDLoaderImplData;

/// Loads schema documents and runs the two passes on them.
class XSDLoaderImpl {
 public:
  XSDLoaderImpl();
  ~XSDLoaderImpl();
  XSDLoaderImpl(const XSDLoaderImpl&) = delete;
  /// Copies options, queries and recorded prefixes; parser and documents stay each loader's own.
  XSDLoaderImpl& operator=(const XSDLoaderImpl& other);

  void loadAbstractGroups(bool load);
  void loadMetaElementDocumentation(bool load);
  void loadMetaElementLengthDescription(bool load);

  /// The queries that all later loads use. The texts are static.
  void setQueries(const XMLUtils::UnicodeString* elementDeclarations, const XMLUtils::UnicodeString* groupDeclarations,
                  const XMLUtils::UnicodeString* groupElementProperties,
                  const XMLUtils::UnicodeString* groupAttributeProperties,
                  const XMLUtils::UnicodeString* requiredStatus, const XMLUtils::UnicodeString* distinguishedValue,
                  const XMLUtils::UnicodeString* localTag, const XMLUtils::UnicodeString* semanticsValidation,
                  const XMLUtils::UnicodeString* elementUL, const XMLUtils::UnicodeString* groupKey,
                  const wchar_t* elementName, const wchar_t* elementLength, const wchar_t* groupName);

  /// @throws the exceptions of XSDDictionaryLoader2::loadDictionary.
  void loadDictionary(const Templates::WideString& path, Dictionary& dictionary);
  /// @throws the exceptions of XSDDictionaryLoader2::loadScheme.
  void loadScheme(const Templates::WideString& path, Dictionary& dictionary);

 private:
  Templates::auto_ptr<XSDLoaderImplData> data_;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
