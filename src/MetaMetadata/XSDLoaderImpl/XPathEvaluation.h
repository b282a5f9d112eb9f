#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>
#include <xercesc/dom/DOMXPathResult.hpp>

#include <optional>

/// Evaluation of queries through the DOM XPath interfaces. Every evaluation makes, uses and releases an expression and
/// a result of its own. Exceptions of Xerces-C and XQilla pass through.
///
/// The resolver that the functions take resolves the query's prefixes; null for a query without prefixes.
namespace MXF::Tessel::MetaMetadata::Loading {

using Elements = Templates::vector<xercesc::DOMElement*>;

/// Appends the elements that the result iterates over, in its order.
void collectElements(xercesc::DOMXPathResult* result, Elements& elements);

/// Appends the elements that the query selects, in document order.
void selectElements(xercesc::DOMNode& context, const XMLCh* query, const xercesc::DOMXPathNSResolver* resolver,
                    Elements& elements);

/// The values of the attributes that the query selects, in document order.
Templates::vector<Templates::WideString> selectAttributeValues(xercesc::DOMNode& context,
                                                               const Templates::WideString& query,
                                                               const xercesc::DOMXPathNSResolver* resolver);

/// The first node that the query selects, or null when its first result is no node.
xercesc::DOMNode* firstNode(xercesc::DOMNode& context, const XMLCh* query, const xercesc::DOMXPathNSResolver* resolver);
xercesc::DOMNode* firstNode(xercesc::DOMNode& context, const Templates::WideString& query,
                            const xercesc::DOMXPathNSResolver* resolver);

/// The node value of firstNode(), or nothing when there is no such node.
std::optional<Templates::WideString> firstText(xercesc::DOMNode& context, const XMLCh* query,
                                               const xercesc::DOMXPathNSResolver* resolver);

/// The node value of firstNode(), empty when there is no such node.
Templates::WideString evaluateString(xercesc::DOMNode& context, const Templates::WideString& query,
                                     const xercesc::DOMXPathNSResolver* resolver);
Templates::WideString evaluateString(xercesc::DOMNode& context, const XMLCh* query,
                                     const xercesc::DOMXPathNSResolver* resolver);

}  // namespace MXF::Tessel::MetaMetadata::Loading
