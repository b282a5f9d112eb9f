#include "SchemaBuilder.h"

#include <algorithm>
#include <iterator>

namespace MXF::Tessel::Test {

namespace {

struct Source {
  const char* mark;
  const char* urn;
  const char* registry;
};

const Source sources[] = {
    {"D:ElementUL", "urn:SMPTE:MXF:XMLInterface:Dictionary:ElementUL",
     "http://www.smpte-ra.org/schemas/434/Dictionary/ElementUL"},
    {"D:ElementName", "urn:SMPTE:MXF:XMLInterface:Dictionary:ElementName",
     "http://www.smpte-ra.org/schemas/434/Dictionary/ElementName"},
    {"D:Length", "urn:SMPTE:MXF:XMLInterface:Dictionary:Length",
     "http://www.smpte-ra.org/schemas/434/Dictionary/Length"},
    {"G:Key", "urn:SMPTE:MXF:XMLInterface:Groups:Key", "http://www.smpte-ra.org/schemas/434/Groups/Key"},
    {"G:Name", "urn:SMPTE:MXF:XMLInterface:Groups:Name", "http://www.smpte-ra.org/schemas/434/Groups/Name"},
    {"G:Status", "urn:SMPTE:MXF:XMLInterface:Groups:MetadataElementRequiredStatus",
     "http://www.smpte-ra.org/schemas/434/Groups/PropertyRequiredStatus"},
    {"G:LocalTag", "urn:SMPTE:MXF:XMLInterface:Groups:LocalTag", "http://www.smpte-ra.org/schemas/434/Groups/LocalTag"},
    {"G:Semantics", "urn:SMPTE:MXF:XMLInterface:Groups:RequiresSemanticsValidation",
     "http://www.smpte-ra.org/schemas/434/Groups/RequiresSemanticValidation"},
    {"G:Value", "urn:SMPTE:MXF:XMLInterface:Groups::DistinguishedValue",
     "http://www.smpte-ra.org/schemas/434/Groups/DistinguishedValue"},
};

std::string twoDigits(int number) {
  return std::to_string(number / 10) + std::to_string(number % 10);
}

template <class Pairs>
void replaceOrAppend(Pairs& pairs, const std::string& name, const std::string& value) {
  const auto found = std::find_if(pairs.begin(), pairs.end(), [&](const auto& pair) { return pair.first == name; });
  if (found == pairs.end()) {
    pairs.emplace_back(name, value);
  } else {
    found->second = value;
  }
}

template <class Pairs>
void removeNamed(Pairs& pairs, const std::string& name) {
  pairs.erase(std::remove_if(pairs.begin(), pairs.end(), [&](const auto& pair) { return pair.first == name; }),
              pairs.end());
}

Declaration use(const char* tag, const std::string& ref, const std::string& status) {
  return Declaration(tag).set("ref", ref).note("G:Status", status);
}

std::string attribute(const std::string& source) {
  return "source=\"" + source + "\"";
}

const char* spelledIn(SchemaFlavour flavour, const Source& source) {
  return flavour == SchemaFlavour::Urn ? source.urn : source.registry;
}

}  // namespace

std::string replaced(const std::string& text, const std::string& part, const std::string& replacement) {
  std::string result;
  std::size_t copied = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, copied)) {
    result.append(text, copied, at - copied).append(replacement);
    copied = at + part.size();
  }
  return result.append(text, copied);
}

std::string sourceIn(SchemaFlavour flavour, const std::string& shortSource) {
  const auto* source = std::find_if(std::begin(sources), std::end(sources),
                                    [&](const Source& candidate) { return candidate.mark == shortSource; });
  return spelledIn(flavour, *source);
}

std::string label(int number) {
  return "06.0E.2B.34.01.01.01.01.00.00.00.00.00.00.00." + twoDigits(number);
}
std::string key(int number) {
  return "06.0E.2B.34.02.53.01.01.0D.01.01.01.01.01." + twoDigits(number) + ".00";
}

Declaration& Declaration::set(const std::string& attribute, const std::string& value) {
  replaceOrAppend(attributes_, attribute, value);
  return *this;
}
Declaration& Declaration::note(const std::string& source, const std::string& text) {
  replaceOrAppend(notes_, source, text);
  return *this;
}
Declaration& Declaration::drop(const std::string& attributeOrSource) {
  removeNamed(attributes_, attributeOrSource);
  removeNamed(notes_, attributeOrSource);
  return *this;
}
Declaration& Declaration::documentation(const std::string& xml) {
  documentation_ += "<xs:documentation>" + xml + "</xs:documentation>";
  return *this;
}
Declaration& Declaration::add(const std::string& xml) {
  content_ += xml;
  return *this;
}

std::string Declaration::text() const {
  std::string text = "<" + tag_;
  for (const auto& [name, value] : attributes_) text.append(" ").append(name).append("=\"").append(value).append("\"");
  text += ">";
  if (!notes_.empty() || !documentation_.empty()) {
    text += "<xs:annotation>" + documentation_;
    for (const auto& [source, note] : notes_) {
      text.append("<xs:appinfo ").append(attribute(source)).append(">").append(note).append("</xs:appinfo>");
    }
    text += "</xs:annotation>";
  }
  return text + content_ + "</" + tag_ + ">";
}

Declaration element(const std::string& name, int number, const std::string& type) {
  Declaration declaration("xs:element");
  declaration.set("name", name).note("D:ElementUL", label(number)).note("D:ElementName", name + " name");
  return type.empty() ? declaration : declaration.set("type", type);
}
Declaration group(const std::string& name, int number) {
  return Declaration("xs:element")
      .set("name", name)
      .set("type", "t:" + name + "Type")
      .note("G:Key", key(number))
      .note("G:Name", name + " name");
}

std::string complexType(const std::string& name, const std::string& content, const std::string& base) {
  const std::string sequence = "<xs:sequence>" + content + "</xs:sequence>";
  const std::string body = base.empty() ? sequence
                                        : "<xs:complexContent><xs:extension base=\"" + base + "\">" + sequence +
                                              "</xs:extension></xs:complexContent>";
  return "<xs:complexType name=\"" + name + "\">" + body + "</xs:complexType>";
}

Declaration property(const std::string& ref, const std::string& status) {
  return use("xs:element", ref, status);
}
Declaration attributeProperty(const std::string& ref, const std::string& status) {
  return use("xs:attribute", ref, status);
}
std::string import(const std::string& uri, const std::string& location) {
  return R"(<xs:import namespace=")" + uri + R"(" schemaLocation=")" + location + R"("/>)";
}

std::string derived(const std::string& base, const std::string& content) {
  return R"(<xs:complexType><xs:complexContent><xs:extension base=")" + base + R"(">)" + content +
         "</xs:extension></xs:complexContent></xs:complexType>";
}
std::string restricted(const std::string& base) {
  return R"(<xs:simpleType><xs:restriction base=")" + base + R"("/></xs:simpleType>)";
}
std::string items(const std::string& type, const std::string& name) {
  return R"(<xs:sequence><xs:element name=")" + name + R"(" type=")" + type + R"("/></xs:sequence>)";
}
std::string references(const std::initializer_list<std::string>& refs) {
  std::string text = "<xs:choice>";
  for (const std::string& ref : refs) text += R"(<xs:element ref=")" + ref + R"("/>)";
  return text + "</xs:choice>";
}

SchemaBuilder::SchemaBuilder(SchemaFlavour flavour) : flavour_(flavour) {
  set("xmlns:xs", "http://www.w3.org/2001/XMLSchema").target("urn:t");
}

SchemaBuilder& SchemaBuilder::target(const std::string& uri) {
  if (uri.empty()) return drop("targetNamespace").drop("xmlns:t");
  return set("xmlns:t", uri).set("targetNamespace", uri);
}
SchemaBuilder& SchemaBuilder::set(const std::string& rootAttribute, const std::string& value) {
  root_.set(rootAttribute, value);
  return *this;
}
SchemaBuilder& SchemaBuilder::drop(const std::string& rootAttribute) {
  root_.drop(rootAttribute);
  return *this;
}
SchemaBuilder& SchemaBuilder::prolog(const std::string& xml) {
  prolog_ += xml;
  return *this;
}
SchemaBuilder& SchemaBuilder::add(const std::string& xml) {
  root_.add(xml);
  return *this;
}

std::string SchemaBuilder::text() const {
  std::string text = prolog_ + root_;
  for (const Source& source : sources) {
    text = replaced(text, attribute(source.mark), attribute(spelledIn(flavour_, source)));
  }
  return text;
}

}  // namespace MXF::Tessel::Test
