#pragma once

#include "MetaMetadata/DictionaryLoader/SchemaFlavour.h"

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

/// Schema texts of which a test row shows only what differs. Annotation sources are written "D:" (dictionary) or "G:"
/// (groups) and a short name, and get the spelling of the schema's flavour: D:ElementUL, D:ElementName, D:Length,
/// G:Key, G:Name, G:Status, G:LocalTag, G:Semantics, G:Value. Any other source stands as it is written.
namespace MXF::Tessel::Test {

using MetaMetadata::Loading::SchemaFlavour;

/// The text with every occurrence of a part replaced.
std::string replaced(const std::string& text, const std::string& part, const std::string& replacement);

/// The spelling of a short source in a flavour.
std::string sourceIn(SchemaFlavour flavour, const std::string& shortSource);

/// Label and key texts that dumps write as "L01" and "K01".
std::string label(int number);
std::string key(int number);

/// An XML element: attributes, then annotations, then content.
class Declaration {
 public:
  explicit Declaration(std::string tag) : tag_(std::move(tag)) {}

  /// Sets an attribute, in place of the one of that name.
  Declaration& set(const std::string& attribute, const std::string& value);
  /// Sets the annotation of a source, in place of the one that it had. The text is XML.
  Declaration& note(const std::string& source, const std::string& text);
  /// Takes an attribute or annotation away.
  Declaration& drop(const std::string& attributeOrSource);
  /// Adds an xs:documentation.
  Declaration& documentation(const std::string& xml);
  /// Adds XML after all that it holds so far.
  Declaration& add(const std::string& xml);

  std::string text() const;
  // NOLINTNEXTLINE(google-explicit-constructor): declarations and texts are put together freely.
  operator std::string() const { return text(); }

 private:
  using Pairs = std::vector<std::pair<std::string, std::string>>;
  std::string tag_;
  Pairs attributes_;
  Pairs notes_;
  std::string documentation_;
  std::string content_;
};

inline std::string operator+(const Declaration& first, const std::string& second) {
  return first.text() + second;
}
inline std::string operator+(const std::string& first, const Declaration& second) {
  return first + second.text();
}
inline std::string operator+(const Declaration& first, const Declaration& second) {
  return first + second.text();
}

/// An element declaration with label(number), the registry name "NAME name" and, unless empty, a type.
Declaration element(const std::string& name, int number, const std::string& type = "");
/// A group declaration with key(number), the registry name "NAME name" and the type "t:NAMEType".
Declaration group(const std::string& name, int number);
/// A named complex type that holds the content, derived from the base unless that is empty.
std::string complexType(const std::string& name, const std::string& content, const std::string& base = "");
/// Use of an element in a group's type, as an xs:element or an xs:attribute.
Declaration property(const std::string& ref, const std::string& status = "Opt");
Declaration attributeProperty(const std::string& ref, const std::string& status = "Opt");
std::string import(const std::string& uri, const std::string& location);

/// Anonymous types inside an element: complex content extending a base, and a simple type restricting it.
std::string derived(const std::string& base, const std::string& content = "");
std::string restricted(const std::string& base);
/// The items of a collection, and the targets of a reference.
std::string items(const std::string& type, const std::string& name = "Item");
std::string references(const std::initializer_list<std::string>& refs);

/// A schema document. At first it binds xs, and t to its target namespace "urn:t".
class SchemaBuilder {
 public:
  explicit SchemaBuilder(SchemaFlavour flavour = SchemaFlavour::Urn);

  /// Gives it another target namespace and binds t to that; none for the empty text.
  SchemaBuilder& target(const std::string& uri);
  SchemaBuilder& set(const std::string& rootAttribute, const std::string& value);
  SchemaBuilder& drop(const std::string& rootAttribute);
  /// XML before the root element.
  SchemaBuilder& prolog(const std::string& xml);
  SchemaBuilder& add(const std::string& xml);

  std::string text() const;

 private:
  SchemaFlavour flavour_;
  std::string prolog_;
  Declaration root_{"xs:schema"};
};

}  // namespace MXF::Tessel::Test
