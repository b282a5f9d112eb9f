#include "Schemas.h"

#include "loader/support/SchemaBuilder.h"

#include <vector>

namespace MXF::Tessel::Test {

namespace {

struct TypedValue {
  const char* type;
  const char* value;
};
const std::vector<TypedValue> allValues = {
    {"UUID", "urn:uuid:00000000-0000-0000-0000-000000000001"},
    {"Boolean", "1"},
    {"Int8", "-1"},
    {"Int16", "-1"},
    {"Int32", "-1"},
    {"Int64", "-1"},
    {"UInt8", "1"},
    {"UInt16", "1"},
    {"UInt32", "1"},
    {"UInt64", "1"},
    {"Length", "1"},
    {"Position", "1"},
    {"ISO7String", "a text that is longer than a short one"},
    {"UTF16Char", "a"},
    {"UTF16String", "a text that is longer than a short one"},
    {"UMID32", "0x0000000000000000000000000000000000000000000000000000000000000001"},
    {"UMID64",
     "0x000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"
     "00"
     "000000000000001"},
    {"UniversalLabel", "06.0E.2B.34.01.01.01.01.00.00.00.00.00.00.00.01"},
    {"Rational", "{1,2}"},
    {"RGBALayout", "{{82,8},{71,8}}"},
};
constexpr int firstValueLabel = 10;
using Values = std::vector<TypedValue>;

SchemaBuilder dictionarySchema(const Values& values) {
  SchemaBuilder schema;
  schema.set("xmlns:o", "urn:o")
      .add(element("Ref", 1).add(derived("t:StrongRefHolder", references({"t:G", "o:Elsewhere", "t:H"}))))
      .add(element("Refs", 2).add(derived("t:StrongRefArray", references({"t:H", "t:G"}))))
      .add(element("List", 3)
               .add(derived("t:Batch", items("t:UInt8")))
               .documentation("What it is")
               .note("D:Length", "8 + 1n"));
  int number = firstValueLabel;
  for (const auto& [type, value] : values) {
    schema.add(element(std::string("A") + type, number++, std::string("t:") + type));
  }
  return schema;
}

SchemaBuilder schemeSchema(const Values& values) {
  std::string own = property("t:List").note("G:Value", "{1,2}").note("G:LocalTag", "3C.01") + property("t:Ref") +
                    attributeProperty("t:Refs", "Req").note("G:LocalTag", "3C.02");
  for (const auto& [type, value] : values) own += property(std::string("t:A") + type).note("G:Value", value);
  SchemaBuilder schema;
  return schema.set("xmlns:b", "urn:b")
      .add(import("urn:b", "base.xsd"))
      .add(group("G", 1).documentation("What it is"))
      .add(complexType("GType", own, "b:Middle"))
      .add(group("H", 2))
      .add(complexType("HType", property("t:AUUID").note("G:Semantics", "true"), "t:GBase"))
      .add(complexType("GBase", "", "b:Middle"));
}

SchemaBuilder importedSchema() {
  SchemaBuilder schema;
  return schema.set("xmlns:t", "urn:t")
      .set("targetNamespace", "urn:b")
      .set("xmlns:b", "urn:b")
      .add(complexType("Middle", property("t:AUUID").note("G:LocalTag", "3C.00"), "b:Root"))
      .add(complexType("Root", property("t:List")));
}

}  // namespace

Schemas::Schemas(ValueTypes valueTypes) {
  const Values values = valueTypes == ValueTypes::All ? allValues : Values{allValues.front()};
  multiplex = folder.write("multiplex.xsd", "<schema targetNamespace='urn:SMPTE:S377M'/>");
  dictionary = folder.write("dictionary.xsd", dictionarySchema(values).text());
  scheme = folder.write("scheme.xsd", schemeSchema(values).text());
  import = folder.write("base.xsd", importedSchema().text());
}

}  // namespace MXF::Tessel::Test
