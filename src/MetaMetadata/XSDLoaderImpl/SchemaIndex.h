#pragma once

#include <Templates/Containers.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMXPathNSResolver.hpp>

#include <map>
#include <memory>
#include <optional>

/// Look-ups of top-level declarations by an attribute. A query for one walks the whole document, and a scheme asks for
/// every type and base group of every chain; an index is built once.
namespace MXF::Tessel::MetaMetadata::Loading {

/// The top-level declarations of a document, by the attributes that look-ups go by.
class SchemaIndex {
 public:
  using Locations = Templates::set<Templates::WideString>;

  /// Of a document in which there is nothing to find.
  SchemaIndex() = default;
  /// @param root  an element "schema", in whose namespace "complexType", "element" and "import" are meant.
  explicit SchemaIndex(const xercesc::DOMElement& root);

  /// Whether the index gives what the queries give: none of the attributes has a type from a DTD or a schema.
  bool isReliable() const { return isReliable_; }

  /// What the query "/xs:schema/xs:complexType[@name='...']" finds first, or null.
  xercesc::DOMElement* complexTypeNamed(const Templates::WideString& name) const;
  /// What the query "/xs:schema/xs:element[@type='...']" finds first, or null.
  xercesc::DOMElement* elementOfType(const Templates::WideString& type) const;
  /// The different values that the query "/xs:schema/xs:import[@namespace='...']/@schemaLocation" finds, in order.
  const Locations& importLocations(const Templates::WideString& namespaceUri) const;

 private:
  /// The attribute's value, if there is one. One with a type makes the index unreliable.
  std::optional<Templates::WideString> textOf(const xercesc::DOMElement& declaration, const XMLCh* attributeName);

  using ByText = Templates::map<Templates::WideString, xercesc::DOMElement*>;

  bool isReliable_ = true;
  ByText complexTypesByName_;
  ByText elementsByType_;
  Templates::map<Templates::WideString, Locations> locationsByNamespace_;
};

/// The indexes of a loader's documents. A document has one: under any namespace but that of its root there is nothing to
/// find in it.
class SchemaIndexes {
 public:
  /// The index that answers queries on the document under the resolver, or null when only a query itself can be trusted
  /// to: the prefix is not bound (the query fails), or the index is not reliable.
  const SchemaIndex* find(const xercesc::DOMDocument& document, const xercesc::DOMXPathNSResolver& resolver);

 private:
  std::map<const xercesc::DOMDocument*, std::unique_ptr<const SchemaIndex>> indexes_;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
