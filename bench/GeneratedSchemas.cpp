#include "GeneratedSchemas.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace MXF::Tessel::Bench {

namespace {

constexpr int attributesOfAGroup = 10;
constexpr int chainLength = 4;
constexpr int localTags = 0x10000;

/// A label or key: eight bytes of prefix and a number.
std::string identifier(const std::string& prefix, int number) {
  std::array<char, 32> text{};
  const auto value = static_cast<std::uint32_t>(number);
  std::snprintf(text.data(), text.size(), ".00.00.00.00.%02X.%02X.%02X.%02X", value >> 24U, (value >> 16U) & 0xFFU,
                (value >> 8U) & 0xFFU, value & 0xFFU);
  return prefix + text.data();
}

std::string localTag(int number) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "%02X.%02X", (number % localTags) >> 8, number % 256);
  return text.data();
}

std::string numbered(const std::string& text, int number) {
  return text + std::to_string(number);
}

/// The spellings of a flavour's annotations.
struct Sources {
  std::string dictionary;
  std::string groups;
  std::string requiredStatus;
};

Sources sourcesOf(SchemaFlavour flavour) {
  if (flavour == SchemaFlavour::Urn) {
    return {"urn:SMPTE:MXF:XMLInterface:Dictionary:", "urn:SMPTE:MXF:XMLInterface:Groups:",
            "MetadataElementRequiredStatus"};
  }
  const std::string base = "http://www.smpte-ra.org/schemas/434/";
  return {base + "Dictionary/", base + "Groups/", "PropertyRequiredStatus"};
}

std::string note(const std::string& source, const std::string& text) {
  return "      <xs:appinfo source=\"" + source + "\">" + text + "</xs:appinfo>\n";
}

std::string schema(const std::string& target, const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" "
         "xmlns:e=\"urn:e\" xmlns:g=\"urn:g\" xmlns:t=\"urn:t\" targetNamespace=\"" +
         target + "\">\n" + content + "</xs:schema>\n";
}

std::string derivedContent(const std::string& base, const std::string& content) {
  return "    <xs:complexType>\n      <xs:complexContent>\n        <xs:extension base=\"t:" + base + "\">\n          " +
         content + "\n        </xs:extension>\n      </xs:complexContent>\n    </xs:complexType>\n";
}

const std::string referencedGroups =
    "<xs:choice><xs:element ref=\"g:Group0\"/><xs:element ref=\"g:Group1\"/></xs:choice>";

/// What an element declaration says of its type: an attribute, or content.
std::string typeAttribute(int number) {
  static const std::array<const char*, 7> simple = {"UInt32", "UTF16String", "Int64", "Boolean",
                                                    "AUID",   "Rational",    "UInt8"};
  const auto place = static_cast<std::size_t>(number % 10);
  return place < simple.size() ? std::string(" type=\"t:") + simple[place] + "\"" : "";
}

std::string typeContent(int number) {
  switch (number % 10) {
    case 7:
      return derivedContent("Array", "<xs:sequence><xs:element name=\"Item\" type=\"t:UInt32\"/></xs:sequence>");
    case 8:
      return derivedContent("StrongReference", referencedGroups);
    case 9:
      return derivedContent("StrongRefArray",
                            "<xs:sequence><xs:element name=\"Item\"/></xs:sequence>" + referencedGroups);
    default:
      return "";
  }
}

}  // namespace

std::string multiplexSchema(SchemaFlavour flavour) {
  const std::string uri = flavour == SchemaFlavour::Urn
                              ? "urn:SMPTE:S377M"
                              : "http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004";
  return schema(uri, "");
}

std::string dictionarySchema(SchemaFlavour flavour, int declarations) {
  const Sources sources = sourcesOf(flavour);
  std::string content;
  for (int i = 0; i < declarations; ++i) {
    content += numbered("  <xs:element name=\"Element", i) + "\"" + typeAttribute(i) + ">\n    <xs:annotation>\n";
    content +=
        numbered("      <xs:documentation>Documentation of element ", i) + ", one sentence long.</xs:documentation>\n";
    content += note(sources.dictionary + "ElementName", numbered("Element ", i)) +
               note(sources.dictionary + "Length", "4 bytes") +
               note(sources.dictionary + "ElementUL", identifier("06.0E.2B.34.01.01.01.05", i));
    content += "    </xs:annotation>\n" + typeContent(i) + "  </xs:element>\n";
  }
  return schema("urn:e", content);
}

std::string schemeSchema(SchemaFlavour flavour, int groups, int elements) {
  const Sources sources = sourcesOf(flavour);
  std::string content;
  for (int i = 0; i < groups; ++i) {
    content += numbered("  <xs:element name=\"Group", i) + numbered("\" type=\"g:Group", i) +
               "Type\">\n    <xs:annotation>\n" + note(sources.groups + "Name", numbered("Group ", i)) +
               note(sources.groups + "Key", identifier("06.0E.2B.34.02.53.01.01", i)) +
               "    </xs:annotation>\n  </xs:element>\n";
    std::string attributes;
    for (int k = 0; k < attributesOfAGroup; ++k) {
      const int element = i * attributesOfAGroup + k;
      attributes += numbered("    <xs:element ref=\"e:Element", element % elements) +
                    "\" minOccurs=\"0\">\n    <xs:annotation>\n" +
                    note(sources.groups + sources.requiredStatus, "Opt") +
                    note(sources.groups + "LocalTag", localTag(element)) + "    </xs:annotation>\n    </xs:element>\n";
    }
    attributes = "<xs:sequence>\n" + attributes + "    </xs:sequence>\n";
    if (i % chainLength != 0) {
      attributes = numbered("<xs:complexContent><xs:extension base=\"g:Group", i - 1) + "Type\">" + attributes +
                   "</xs:extension></xs:complexContent>\n";
    }
    content += numbered("  <xs:complexType name=\"Group", i) + "Type\">" + attributes + "  </xs:complexType>\n";
  }
  return schema("urn:g", content);
}

}  // namespace MXF::Tessel::Bench
