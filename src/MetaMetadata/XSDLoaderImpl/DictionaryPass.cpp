// The dictionary pass: element declarations become elements. Entry point: runDictionaryPass(); all else is local but
// readElementLabel(), its first step.

#include "DictionaryPass.h"

#include "DataTypeMapping.h"
#include "DeclarationOrigins.h"
#include "ElementCreation.h"
#include "ErrorTranslation.h"
#include "LabelDesignator.h"
#include "SourceNames.h"
#include "XPathEvaluation.h"

#include <Exceptions/Exceptions.h>

#include <utility>

namespace MXF::Tessel::MetaMetadata::Loading {

using Templates::auto_ptr;
using Templates::WideString;
using Types::UniversalLabel;

namespace {

/// Owns the elements of one document until all of them have been made.
using PendingElements = Templates::map<UniversalLabel, auto_ptr<MetaElement>>;

void readDeclaration(const XSDLoaderImplData& data, xercesc::DOMElement& declaration, PendingElements& pending) {
  const auto_ptr<UniversalLabel> label = readElementLabel(data, declaration);
  if (pending.count(*label) != 0) {
    throw Exceptions::MetaElementAlreadyLoaded(label->toString(textForm).c_str(), SourceNames::loaderImpl, __LINE__);
  }
  const DeclaredType type = resolveDataType(declaration, data.nsResolver);
  pending.emplace(*label, createMetaElement(data, declaration, *label, type));
}

void handOver(PendingElements& pending, Dictionary& dictionary) {
  while (!pending.empty()) {
    const auto first = pending.begin();
    const UniversalLabel label = first->second->universalLabel();
    const Utils::SourceLocation origin = first->second->origin();
    workingAt([&]() -> const Utils::SourceLocation& { return origin; },
              [&] { dictionary.addMetaElement(label, std::move(first->second)); });
    pending.erase(first);
  }
}

}  // namespace

void runDictionaryPass(const XSDLoaderImplData& data, xercesc::DOMDocument& document, Dictionary& dictionary) {
  Elements declarations;
  selectElements(document, data.queries.elementDeclarations->utf16(), data.nsResolver, declarations);

  PendingElements pending;
  for (xercesc::DOMElement* declaration : declarations) {
    // Translated here already, so that also what the XML libraries throw gets the place.
    workingOn(data, *declaration, [&] { translatingXmlErrors([&] { readDeclaration(data, *declaration, pending); }); });
  }

  handOver(pending, dictionary);
}

auto_ptr<UniversalLabel> readElementLabel(const XSDLoaderImplData& data, xercesc::DOMElement& declaration) {
  const auto text = firstText(declaration, data.queries.elementUL->utf16(), data.nsResolver);
  if (!text) {
    throw Exceptions::InvalidMetaElementDeclaration(L"MetaElement without UniversalLabel.", SourceNames::loaderImpl,
                                                    __LINE__);
  }
  checkULDesignator(*text);
  return std::make_unique<UniversalLabel>(text->c_str(), textForm);
}

}  // namespace MXF::Tessel::MetaMetadata::Loading
