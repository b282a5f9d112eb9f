// Changes of schema documents. Entry points: mutateSchema() and crossSchemas(); each change is a row of a table.

#include "support/SchemaMutation.h"

#include "support/XmlOutline.h"

#include <algorithm>
#include <iterator>
#include <loader/support/SchemaBuilder.h>

namespace MXF::Tessel::Fuzz {

namespace {

constexpr std::string_view tags[] = {
    "xs:schema",     "xs:element",     "xs:attribute",     "xs:complexType", "xs:simpleType", "xs:complexContent",
    "xs:annotation", "xs:appinfo",     "xs:documentation", "xs:sequence",    "xs:choice",     "xs:extension",
    "xs:import",     "xs:restriction", "xs:simpleContent", "xs:group",       "other"};

constexpr std::string_view attributeNames[] = {
    "name",      "type",    "ref",       "base",           "source",          "abstract",
    "namespace", "id",      "minOccurs", "schemaLocation", "targetNamespace", "xmlns:xs",
    "xmlns:t",   "xmlns:u", "xmlns"};

/// What stands in attributes and texts, beside the sources of annotations.
constexpr std::string_view words[] = {
    // labels and keys
    "06.0E.2B.34.01.01.01.01.00.00.00.00.00.00.00.01", "06.0e.2b.34.01.01.01.01.00.00.00.00.00.00.00.02",
    "06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.01.00", "06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01.02.00",
    "urn:smpte:ul:060E2B34.01010101.00000000.00000001", "06.0E.2B.34",
    // data types
    "t:Array", "t:Batch", "t:Boolean", "t:DataStream", "t:Int8", "t:Int32", "t:UInt64", "t:ISO7String", "t:Length",
    "t:Rational", "t:RGBALayout", "t:UL", "t:UMID32", "t:UTF16", "t:UTF16String", "t:UUID", "t:Record",
    "t:StrongReference", "t:StrongRefHolder", "t:WeakRefHolder", "t:StrongRefBatch", "t:WeakRefArray", "t:Set_REF",
    // words and values of annotations
    "Req", "Opt", "D/req", "E/req", "B.Effort", "3C.0A", "0x3c0b", "ffff", "0", "-1", "4294967296", "{1,2,3}", "{1,25}",
    "{{82,8},{71,8},{66,8},{65,8},{0,0},{0,0},{0,0},{0,0}}", "true", "false",
    // names and namespaces
    "A6", "A26", "t:A6", "t:A26", "t:A34", "t:BInt32", "t:BRGBALayout", "t:RStrongRefBatch", "u:A6", "G", "H", "t:G",
    "t:GType", "t:HType", "u:GType", "u:BaseType", "GType", "'", "]", "t:", ":A6", "", "urn:t", "urn:u", "import.xsd",
    "second.xsd", "scheme.xsd", "missing.xsd", "../", "http://www.w3.org/2001/XMLSchema", "urn:SMPTE:S377M",
    "http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004"};

constexpr const char* sources[] = {"D:ElementUL", "D:ElementName", "D:Length",    "G:Key",  "G:Name",
                                   "G:Status",    "G:LocalTag",    "G:Semantics", "G:Value"};

std::size_t below(std::size_t limit, Random& random) {
  return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

template <class Items>
const auto& oneOf(const Items& items, Random& random) {
  return *std::next(std::begin(items), static_cast<std::ptrdiff_t>(below(std::size(items), random)));
}

/// A source of annotations, in either flavour.
std::string anySource(Random& random) {
  const auto flavour = below(2, random) == 0 ? Test::SchemaFlavour::Urn : Test::SchemaFlavour::RegistryUri;
  return Test::sourceIn(flavour, oneOf(sources, random));
}

/// What may stand in a document type.
constexpr std::string_view declarations[] = {
    "<!ENTITY e 'text'>",
    "<!ENTITY e '<xs:element ref=\"t:A6\"/>'>",
    "<!ENTITY outside SYSTEM 'missing.txt'>",
    "<!ENTITY % p '<!ENTITY e \"&#37;p;\">'>%p;",
    "<!ENTITY binary SYSTEM 'missing.bin' NDATA n>",
    "<!NOTATION n SYSTEM 'n'>",
    "<!ELEMENT xs:schema ANY>",
    "<!ATTLIST xs:element name ID #IMPLIED type NMTOKEN #IMPLIED ref NMTOKENS #IMPLIED>",
    "<!ATTLIST xs:element abstract CDATA 'true'>",
    "<!ATTLIST xs:complexType name NMTOKENS 'GType'>",
    "<!ATTLIST xs:schema targetNamespace CDATA 'urn:t' xmlns:xs CDATA #FIXED 'http://www.w3.org/2001/XMLSchema'>",
    "<!-- c -->",
    "<?p i?>"};

/// What may stand beside an element.
constexpr std::string_view contents[] = {"<!-- c -->", "<?p i?>",   "<![CDATA[text]]>", "text",
                                         "&e;",        "&outside;", "&#x1F600;",        "<other xmlns='urn:o'/>"};

/// A text with its outline.
struct Schema {
  std::string_view text;
  XmlOutline outline;

  explicit Schema(std::string_view xml) : text(xml), outline(outlineOf(xml)) {}

  std::string_view at(Span span) const { return text.substr(span.begin, span.end - span.begin); }
  std::string with(Span span, std::string_view replacement) const {
    return std::string(text.substr(0, span.begin)).append(replacement).append(text.substr(span.end));
  }
  std::string withAt(std::size_t position, std::string_view addition) const {
    return with({position, position}, addition);
  }
  /// The text with two spans exchanged, of which the one may hold the other, and then takes its place.
  std::string withExchanged(Span a, Span b) const {
    if (b.begin < a.begin) std::swap(a, b);
    if (b.begin < a.end) return with(a, at(b));
    return std::string(text.substr(0, a.begin))
        .append(at(b))
        .append(text.substr(a.end, b.begin - a.end))
        .append(at(a))
        .append(text.substr(b.end));
  }
};

using Spans = std::vector<Span> XmlOutline::*;

template <Spans spans>
std::string remove(const Schema& schema, Random& random) {
  return schema.with(oneOf(schema.outline.*spans, random), "");
}
template <Spans spans>
std::string exchange(const Schema& schema, Random& random) {
  return schema.withExchanged(oneOf(schema.outline.*spans, random), oneOf(schema.outline.*spans, random));
}
template <Spans spans>
std::string overwrite(const Schema& schema, Random& random) {
  return schema.with(oneOf(schema.outline.*spans, random), schema.at(oneOf(schema.outline.*spans, random)));
}

std::string copyElement(const Schema& schema, Random& random) {
  const std::string_view copy = schema.at(oneOf(schema.outline.elements, random));
  return schema.withAt(oneOf(schema.outline.elements, random).begin, copy);
}

std::string copyAttribute(const Schema& schema, Random& random) {
  const std::string copy = " " + std::string(schema.at(oneOf(schema.outline.attributes, random)));
  return schema.withAt(oneOf(schema.outline.startNames, random).end, copy);
}

std::string addAttribute(const Schema& schema, Random& random) {
  std::string attribute(" ");
  attribute.append(oneOf(attributeNames, random)).append("=\"").append(oneOf(words, random)).append("\"");
  return schema.withAt(oneOf(schema.outline.startNames, random).end, attribute);
}

std::string addAnnotation(const Schema& schema, Random& random) {
  std::string annotation("<xs:appinfo source=\"");
  annotation.append(anySource(random)).append("\">").append(oneOf(words, random)).append("</xs:appinfo>");
  return schema.withAt(oneOf(schema.outline.elements, random).begin, annotation);
}

std::string addContent(const Schema& schema, Random& random) {
  return schema.withAt(oneOf(schema.outline.elements, random).begin, oneOf(contents, random));
}

/// A declaration in the document type, which is made if there is none.
std::string addDeclaration(const Schema& schema, Random& random) {
  const std::string declaration(oneOf(declarations, random));
  const std::size_t root = schema.outline.startNames.front().begin - 1;
  const std::size_t subset = schema.text.substr(0, root).find('[');
  if (subset != std::string_view::npos) return schema.withAt(subset + 1, declaration);
  return schema.withAt(root, "<!DOCTYPE xs:schema [" + declaration + "]>");
}

/// Another name for an element, in both of its tags.
std::string rename(const Schema& schema, Random& random) {
  const Span element = oneOf(schema.outline.elements, random);
  const std::string_view tag = oneOf(tags, random);
  const std::size_t nameEnd = std::min(schema.text.find_first_of(" \t\r\n/>", element.begin + 1), element.end);
  std::string renamed = schema.with({element.begin + 1, nameEnd}, tag);
  const std::size_t end = element.end + tag.size() - (nameEnd - element.begin - 1);
  const std::size_t endTag = renamed.rfind("</", end);
  if (renamed[end - 2] == '/' || endTag == std::string::npos) return renamed;
  return renamed.replace(endTag + 2, end - endTag - 3, tag);
}

std::string setWord(const Schema& schema, Random& random) {
  return schema.with(oneOf(schema.outline.values, random), oneOf(words, random));
}

std::string setSource(const Schema& schema, Random& random) {
  return schema.with(oneOf(schema.outline.values, random), anySource(random));
}

using Change = std::string (*)(const Schema&, Random&);

struct ChangeRow {
  Spans needed;
  Change apply;
};

constexpr ChangeRow changes[] = {
    {&XmlOutline::elements, remove<&XmlOutline::elements>},
    {&XmlOutline::elements, exchange<&XmlOutline::elements>},
    {&XmlOutline::elements, overwrite<&XmlOutline::elements>},
    {&XmlOutline::elements, copyElement},
    {&XmlOutline::elements, addAnnotation},
    {&XmlOutline::elements, addContent},
    {&XmlOutline::elements, rename},
    {&XmlOutline::attributes, remove<&XmlOutline::attributes>},
    {&XmlOutline::attributes, exchange<&XmlOutline::attributes>},
    {&XmlOutline::attributes, copyAttribute},
    {&XmlOutline::startNames, addAttribute},
    {&XmlOutline::startNames, addDeclaration},
    {&XmlOutline::values, exchange<&XmlOutline::values>},
    {&XmlOutline::values, overwrite<&XmlOutline::values>},
    {&XmlOutline::values, setWord},
    {&XmlOutline::values, setWord},  // twice: most of what the loader reads are values
    {&XmlOutline::values, setSource},
};

}  // namespace

std::string mutateSchema(std::string_view schema, Random& random) {
  const Schema outlined(schema);
  const ChangeRow& change = oneOf(changes, random);
  if ((outlined.outline.*change.needed).empty()) return std::string(schema);
  return change.apply(outlined, random);
}

std::string crossSchemas(std::string_view schema, std::string_view other, Random& random) {
  const Schema into(schema);
  const Schema from(other);
  if (into.outline.elements.empty() || from.outline.elements.empty()) return std::string(schema);
  const std::string_view element = from.at(oneOf(from.outline.elements, random));
  const Span place = oneOf(into.outline.elements, random);
  return below(2, random) == 0 ? into.with(place, element) : into.withAt(place.begin, element);
}

}  // namespace MXF::Tessel::Fuzz
