#pragma once

#include "support/Loading.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

namespace MXF::Tessel::Test {

/// A session whose dictionary holds elements for groups to refer to, all of namespace "urn:t": A, B and C of type Int32
/// (L01 to L03).
class SchemeSession : public LoadSession {
 public:
  explicit SchemeSession(SchemaFlavour flavour = SchemaFlavour::Urn) : LoadSession(flavour) {
    EXPECT_EQ(loadDictionary(SchemaBuilder(flavour)
                                 .add(element("A", 1, "t:Int32"))
                                 .add(element("B", 2, "t:Int32"))
                                 .add(element("C", 3, "t:Int32"))),
              "ok");
  }

  /// The dictionary's sets and local tags as dump() writes them.
  [[nodiscard]] std::string sets(Properties properties = Properties::LeftOut) const {
    std::istringstream lines(dump(dictionary, properties));
    std::string text;
    for (std::string line; std::getline(lines, line);) text += line.front() == 'L' ? "" : line + "\n";
    return text;
  }

  /// The sets and local tags after a load that succeeds, the outcome of one that fails.
  std::string setsAfter(const SchemaBuilder& schema, Properties properties = Properties::LeftOut) {
    const std::string outcome = loadScheme(schema);
    return outcome == "ok" ? sets(properties) : outcome;
  }
  /// The value of a property of a set, or "no property".
  [[nodiscard]] std::string propertyOf(int set, const wchar_t* name) const {
    const KLV::Key setKey(wide(key(set)).c_str(), Types::StringRepresentationEncodingType::DottedHex);
    const auto& properties = dictionary.findMetaMetadataSet(setKey)->properties();
    const auto property = properties.find(name);
    return property == properties.end() ? "no property" : narrow(property->second);
  }
};

/// A schema and what a fresh session makes of it: sets and local tags, or the failure.
struct SchemeCase {
  const char* what;
  SchemaBuilder schema;
  std::string result;
};

/// A document type makes no difference to what a schema says, but to how its declarations are looked up.
inline const char* const documentTypes[] = {"", "<!DOCTYPE xs:schema []>"};

inline void expectResults(const std::vector<SchemeCase>& cases) {
  for (const SchemeCase& row : cases) {
    for (const char* documentType : documentTypes) {
      SchemeSession session;
      EXPECT_EQ(session.setsAfter(SchemaBuilder(row.schema).prolog(documentType)), row.result)
          << row.what << " " << documentType;
    }
  }
}

/// The texts one after the other.
inline std::string all(const std::initializer_list<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += part;
  return text;
}

/// A schema of these declarations, with the target namespace "urn:t".
template <class... Declarations>
SchemaBuilder schemaOf(const Declarations&... declarations) {
  SchemaBuilder schema;
  (schema.add(declarations), ...);
  return schema;
}

}  // namespace MXF::Tessel::Test
