// The loader proper: opens a document and runs one of the passes on it, inside the error boundaries.

#include "XSDLoaderImpl.h"

#include "DictionaryPass.h"
#include "DocumentAccess.h"
#include "ErrorTranslation.h"
#include "Names.h"
#include "SchemePass.h"
#include "XSDLoaderImplData.h"

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::WideString;
using XMLUtils::UnicodeString;

namespace {

/// The first steps of both loads: the path is kept for resolving imports, the document is read by the path as given.
xercesc::DOMDocument& openDocument(XSDLoaderImplData& data, const WideString& path) {
  data.documentPath = path;
  toForwardSlashes(data.documentPath);
  *data.budget = LoadBudget();
  return *translatingSaxErrors(SourceNames::loaderImpl, __LINE__, [&] { return loadDocument(data, path); });
}

}  // namespace

XSDLoaderImpl::XSDLoaderImpl() : data_(new XSDLoaderImplData) {}
XSDLoaderImpl::~XSDLoaderImpl() = default;

XSDLoaderImpl& XSDLoaderImpl::operator=(const XSDLoaderImpl& other) {
  if (this == &other) return *this;
  auto prefixes = other.data_->prefixByNamespace;  // copied before anything changes
  data_->prefixByNamespace.swap(prefixes);
  data_->withDocumentation = other.data_->withDocumentation;
  data_->withLengthDescription = other.data_->withLengthDescription;
  data_->withAbstractGroups = other.data_->withAbstractGroups;
  data_->queries = other.data_->queries;
  return *this;
}

void XSDLoaderImpl::loadAbstractGroups(bool load) {
  data_->withAbstractGroups = load;
}
void XSDLoaderImpl::loadMetaElementDocumentation(bool load) {
  data_->withDocumentation = load;
}
void XSDLoaderImpl::loadMetaElementLengthDescription(bool load) {
  data_->withLengthDescription = load;
}

void XSDLoaderImpl::setQueries(const UnicodeString* elementDeclarations, const UnicodeString* groupDeclarations,
                               const UnicodeString* groupElementProperties,
                               const UnicodeString* groupAttributeProperties, const UnicodeString* requiredStatus,
                               const UnicodeString* distinguishedValue, const UnicodeString* localTag,
                               const UnicodeString* semanticsValidation, const UnicodeString* elementUL,
                               const UnicodeString* groupKey, const wchar_t* elementName, const wchar_t* elementLength,
                               const wchar_t* groupName) {
  data_->queries = {elementDeclarations,
                    groupDeclarations,
                    groupElementProperties,
                    groupAttributeProperties,
                    requiredStatus,
                    distinguishedValue,
                    localTag,
                    semanticsValidation,
                    elementUL,
                    groupKey,
                    elementName,
                    elementLength,
                    groupName};
}

void XSDLoaderImpl::loadDictionary(const WideString& path, Dictionary& dictionary) {
  xercesc::DOMDocument& document = openDocument(*data_, path);
  translatingXmlErrors([&] { runDictionaryPass(*data_, document, dictionary); });
}

void XSDLoaderImpl::loadScheme(const WideString& path, Dictionary& dictionary) {
  xercesc::DOMDocument& document = openDocument(*data_, path);
  processSchemeDocument(*data_, document, dictionary);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
