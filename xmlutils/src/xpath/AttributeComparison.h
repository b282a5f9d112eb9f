#pragma once

#include <xqilla/simple-api/XQQuery.hpp>

namespace MXF::Tessel::XMLUtils::XPath {

/// Replaces the comparisons in a compiled query that ask whether an attribute equals a string literal, as in
/// "[@source='...']", by ones that compare the attribute's text with the literal. XQilla makes a typed value of each
/// attribute first, casts it and compares the values, which is nearly all that evaluating the loader's queries costs.
/// Where an attribute has a type, from a schema or a DTD, the comparison goes XQilla's way.
void compareAttributesAsText(XQQuery& query);

}  // namespace MXF::Tessel::XMLUtils::XPath
