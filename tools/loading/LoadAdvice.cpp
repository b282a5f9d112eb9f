// Explains loads without a result: files of another kind or flavour than they were given as.

#include "loading/LoadAdvice.h"

#include "loading/SchemaContents.h"

#include <Utils/TextConversion.h>

#include <filesystem>

namespace MXF::Tessel::Tool {

namespace {

std::string narrow(const wchar_t* text) {
  const Templates::NarrowString result = Utils::wstringToString(text);
  return {result.begin(), result.end()};
}

/// A flavour as seen from a document.
struct Flavour {
  const char* name;
  const wchar_t* multiplexNamespace;
  AnnotatedDeclarations declared;
};

std::string counted(std::size_t number, const char* noun) {
  return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
}

std::size_t declaredAs(FileKind kind, const AnnotatedDeclarations& declared) {
  return kind == FileKind::Dictionary ? declared.elements : declared.groups;
}

const char* nounOf(FileKind kind) {
  return kind == FileKind::Dictionary ? "element" : "group";
}

/// How to ask for a flavour: the multiplex schema beside the file if there is one, else what it has to be like.
std::string howToChoose(const Flavour& flavour, const std::string& file) {
  const std::string beside = (std::filesystem::path(file).parent_path() / "multiplex.xsd").string();
  const std::optional<SchemaContents> found = schemaContents(beside);
  if (found && found->targetNamespace == flavour.multiplexNamespace) return "--multiplex " + beside;
  return "--multiplex with a schema of the target namespace " + narrow(flavour.multiplexNamespace);
}

Advice adviceOnFlavour(const SchemaFile& file, const Flavour& used, const Flavour& other) {
  const std::string noun = nounOf(file.kind);
  const std::string remedy = other.multiplexNamespace == urnMultiplexNamespace
                                 ? "leave out --multiplex, or give " + howToChoose(other, file.path)
                                 : "add " + howToChoose(other, file.path);
  return {"declares no " + noun + "s in the " + used.name + " flavour, but " +
              counted(declaredAs(file.kind, other.declared), noun.c_str()) + " in the " + other.name +
              " flavour: " + remedy,
          true};
}

}  // namespace

Advice adviceOnNothing(const SchemaFile& file, const Templates::WideString& flavour, bool triedAbstractGroups) {
  const SchemaContents contents = schemaContents(file.path).value_or(SchemaContents());
  const Flavour urn = {"URN", urnMultiplexNamespace, contents.urn};
  const Flavour registry = {"registry", registryMultiplexNamespace, contents.registry};
  const bool isUrn = flavour == urnMultiplexNamespace;
  const Flavour& used = isUrn ? urn : registry;
  const Flavour& other = isUrn ? registry : urn;

  const FileKind otherKind = file.kind == FileKind::Dictionary ? FileKind::Scheme : FileKind::Dictionary;
  const std::size_t ofOtherKind = declaredAs(otherKind, urn.declared) + declaredAs(otherKind, registry.declared);
  const std::string nothing = std::string("declares no ") + nounOf(file.kind) + "s";
  if (declaredAs(file.kind, used.declared) > 0) {
    return {triedAbstractGroups ? "declares abstract groups only, and not all of them have keys"
                                : "declares abstract groups only: add --abstract-groups",
            false};
  }
  if (declaredAs(file.kind, other.declared) > 0) return adviceOnFlavour(file, used, other);
  if (ofOtherKind > 0) {
    return {
        nothing + ", but " + counted(ofOtherKind, nounOf(otherKind)) + ": give it with --" + fileKindName(otherKind),
        true};
  }
  if (contents.targetNamespace == urnMultiplexNamespace || contents.targetNamespace == registryMultiplexNamespace) {
    return {nothing + ", as it is a multiplex schema: give it with --multiplex", true};
  }
  return {nothing + ": no declaration at its top level has the annotation that marks one, in either flavour", false};
}

std::optional<Advice> adviceOnFailure(const LoadRecord& record, const LoadOutcome& outcome) {
  const SchemaFile& file = record.file;
  if (file.kind == FileKind::Multiplex) {
    const std::optional<SchemaContents> contents = schemaContents(file.path);
    if (!contents) return std::nullopt;
    const std::size_t elements = contents->urn.elements + contents->registry.elements;
    const std::size_t groups = contents->urn.groups + contents->registry.groups;
    if (elements > 0)
      return Advice{"it declares " + counted(elements, "element") + ": give it with --dictionary", true};
    if (groups > 0) return Advice{"it declares " + counted(groups, "group") + ": give it with --scheme", true};
    return Advice{"a multiplex schema has the target namespace " + narrow(urnMultiplexNamespace) + " or " +
                      narrow(registryMultiplexNamespace),
                  true};
  }
  const MetaMetadata::Dictionary& dictionary = outcome.dictionary;
  const bool hasElements = dictionary.metaElementBegin() != dictionary.metaElementEnd();
  if (file.kind == FileKind::Scheme && record.failure->className == "NotFound" && !hasElements) {
    return Advice{"groups refer to elements, and none are loaded: give their schemas with --dictionary before it",
                  true};
  }
  return std::nullopt;
}

}  // namespace MXF::Tessel::Tool
