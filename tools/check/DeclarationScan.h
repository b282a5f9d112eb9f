#pragma once

#include "loading/Annotations.h"
#include "loading/SchemaDocument.h"

#include <Templates/Containers.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace MXF::Tessel::Tool {

/// Of the declarations of XML Schema.
inline constexpr const char16_t* schemaNamespace = u"http://www.w3.org/2001/XMLSchema";

/// What a document declares and the loader passes over without a word, or keeps in a form that does not tell.
struct DeclarationScan {
  // NOLINTNEXTLINE(bugprone-exception-escape): texts with allocators that are equal are moved without a copy.
  struct Root {
    DeclarationPosition position;
    Templates::WideString namespaceUri;
    Templates::WideString name;
  };
  struct UnknownAnnotation {
    DeclarationPosition position;
    std::string source;
    std::string nearest;  ///< The source that was probably meant; empty when none comes near.
  };
  /// An annotation that stands a second time at a declaration.
  struct RepeatedAnnotation {
    DeclarationPosition position;
    DeclarationPosition first;
    std::string source;
  };
  /// A declaration with annotations of an element or group, but not with the one by which the loader finds it.
  struct UnmarkedDeclaration {
    DeclarationPosition position;
    Templates::WideString name;
    std::string present;  ///< Last part of the source of an annotation that it has.
    std::string missing;  ///< The same of the one that it needs.
  };
  /// Something that stands where the loader does not look.
  struct Unread {
    DeclarationPosition position;
    std::string message;                       ///< A sentence.
    std::string remedy;                        ///< A sentence.
    std::optional<DeclarationPosition> first;  ///< What is read instead.
  };
  /// A declaration with annotations of the other flavour that it has not in the flavour in use.
  struct OtherFlavour {
    DeclarationPosition position;
    Templates::WideString name;  ///< Or what it refers to.
    std::string sources;         ///< Their last parts, joined.
  };
  struct PlainReference {
    DeclarationPosition position;
    Templates::WideString typeName;  ///< Of the complex type that it stands in.
    Templates::WideString namespaceUri;
    Templates::WideString elementName;
  };
  /// What stands at the top level.
  // NOLINTNEXTLINE(bugprone-exception-escape): texts with allocators that are equal are moved without a copy.
  struct Declaration {
    Templates::WideString name;  ///< Its XML name without the namespace.
    Templates::WideString key;   ///< Of a group, as it is written; empty for one without a key of the flavour in use.
    bool isAbstract;
  };
  /// A name with a prefix that stands for nothing.
  struct UnboundPrefix {
    DeclarationPosition position;
    std::string prefix;
    std::string name;  ///< With the prefix.
  };
  struct Import {
    DeclarationPosition position;
    Templates::WideString namespaceUri;
    Templates::WideString location;
  };
  /// An xs:include, xs:redefine or xs:override.
  struct Inclusion {
    DeclarationPosition position;
    Templates::WideString name;  ///< Without the prefix.
    Templates::WideString location;
  };
  // NOLINTNEXTLINE(bugprone-exception-escape): texts with allocators that are equal are moved without a copy.
  struct WrittenValue {
    Templates::WideString read;   ///< The first text, which is all that the loader reads; empty when there is none.
    Templates::WideString whole;  ///< All text of the annotation.
  };

  bool isRead = false;            ///< Whether it is a document that can be read.
  std::optional<Root> wrongRoot;  ///< The root when it is not that of an XML Schema.
  /// What the prefix xs stands for when it is anything but XML Schema.
  std::optional<Templates::WideString> wrongPrefix;
  Templates::WideString targetNamespace;
  std::map<DeclarationPosition, Declaration> declarations;
  std::vector<Import> imports;                 ///< Those with a location.
  std::map<std::string, std::size_t> sources;  ///< Of all annotations, and how often they are there.
  std::vector<UnboundPrefix> unboundPrefixes;
  std::vector<UnknownAnnotation> unknownAnnotations;    ///< Of the flavour in use.
  std::vector<RepeatedAnnotation> repeatedAnnotations;  ///< Of the flavour in use.
  std::vector<UnmarkedDeclaration> unmarkedDeclarations;
  std::vector<Unread> unread;
  std::vector<Inclusion> inclusions;
  std::vector<OtherFlavour> otherFlavour;
  /// References in complex types that have no required status, in neither flavour.
  std::vector<PlainReference> plainReferences;
  std::set<DeclarationPosition> withChoices;           ///< Top-level declarations that name sets in a choice.
  std::map<DeclarationPosition, WrittenValue> values;  ///< Distinguished values, by the declarations they annotate.
};

/// Looks into a document; there is nothing to find in one that cannot be read.
DeclarationScan scanDeclarations(const Templates::WideString& path, const Annotations& annotations);

}  // namespace MXF::Tessel::Tool
