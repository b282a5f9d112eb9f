#pragma once

#include "XSDLoaderImplData.h"

#include <Templates/Containers.h>
#include <XMLUtils/DocumentLoading.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

/// Schema documents: loading them, and reading what their root elements and declarations say in attributes.
namespace MXF::Tessel::MetaMetadata::Loading {

/// Parses the file, makes its namespace bindings those of all later queries, and records their prefixes. The parser
/// owns the document.
/// @param counting  Further for an import, which shares the limits of the document that it is loaded for.
/// @throws Exceptions::IOError  no such file: the path, then " file Not Found!".
/// @throws Exceptions::ParseError  the document has no root element.
/// @throws xercesc::SAXParseException  not well-formed.
xercesc::DOMDocument* loadDocument(XSDLoaderImplData& data, const Templates::WideString& path,
                                   XMLUtils::Counting counting = XMLUtils::Counting::Anew);

/// Records the "xmlns:" bindings of the root element in the data's resolver, and their prefixes for namespaces that
/// have none yet. The default namespace is not recorded.
/// @throws Exceptions::ParseError  the document has no root element.
void registerNamespaces(XSDLoaderImplData& data, xercesc::DOMDocument& document);

/// The root element's target namespace.
/// @throws Exceptions::SchemeDataMissingException  it is absent or empty: "Scheme document without target namespace
///         URI.".
Templates::WideString targetNamespaceOf(const xercesc::DOMDocument& document);

/// The namespace that the root element's "xmlns:" attribute gives the prefix; empty when there is none.
Templates::WideString namespaceForPrefix(const xercesc::DOMDocument& document, const Templates::WideString& prefix);

/// The attribute's value; empty when it is absent.
Templates::WideString attributeOf(const xercesc::DOMElement& element, const XMLCh* name);

/// @throws Exceptions::ParseError  always: the expression, ": " and the message.
[[noreturn]] void failAssertion(const char* expression, const wchar_t* message, const char* file, int line);

}  // namespace MXF::Tessel::MetaMetadata::Loading
