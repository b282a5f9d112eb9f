// Explains loads without a result: files of another kind or flavour than they were given as.

#include "loading/NothingLoaded.h"

#include "loading/Annotations.h"
#include "loading/SchemaContents.h"
#include "loading/ShippedSchemas.h"
#include "text/Unicode.h"

#include <filesystem>

namespace MXF::Tessel::Tool {

namespace {

/// A flavour as seen from a document.
struct Flavour {
  const Annotations& annotations;
  AnnotatedDeclarations declared;
};

std::size_t declaredAs(FileKind kind, const AnnotatedDeclarations& declared) {
  return kind == FileKind::Dictionary ? declared.elements : declared.groups;
}

const char* nounOf(FileKind kind) {
  return kind == FileKind::Dictionary ? "element" : "group";
}

/// How to ask for a flavour: the multiplex schema beside the file if there is one, else what it has to be like. Nothing
/// of it but its namespace matters, so that ours serves for everybody's schemas.
std::string howToChoose(const Annotations& flavour, const std::string& file) {
  const std::string beside = (std::filesystem::path(file).parent_path() / "multiplex.xsd").string();
  const std::optional<SchemaContents> found = schemaContents(beside);
  if (found && found->targetNamespace == flavour.multiplexNamespace) return "--multiplex " + beside;
  if (&flavour == &registryAnnotations) return "--multiplex " + shippedMultiplex();
  return "--multiplex with a schema of the target namespace " + narrow(flavour.multiplexNamespace);
}

NothingLoaded wrongFlavour(const SchemaFile& file, const Flavour& used, const Flavour& other) {
  const std::string noun = nounOf(file.kind);
  const bool hasAny = declaredAs(file.kind, used.declared) > 0;
  const std::string text = std::string("declares ") + (hasAny ? "abstract " + noun + "s only" : "no " + noun + "s") +
                           " in the " + used.annotations.flavour + " flavour, but " +
                           counted(declaredAs(file.kind, other.declared), noun) + " in the " +
                           other.annotations.flavour + " flavour";
  const std::string choice = howToChoose(other.annotations, file.path);
  const bool isDefault = &other.annotations == &annotationsOf(urnMultiplexNamespace);
  return {text, (isDefault ? "Leave out --multiplex, or give " : "Add ") + choice + ".", true, true};
}

}  // namespace

NothingLoaded whyNothingLoaded(const SchemaFile& file, const Templates::WideString& flavour, bool triedAbstractGroups) {
  const SchemaContents contents = schemaContents(file.path).value_or(SchemaContents());
  const Flavour urn = {urnAnnotations, contents.urn};
  const Flavour registry = {registryAnnotations, contents.registry};
  const bool isUrn = flavour == urnMultiplexNamespace;
  const Flavour& used = isUrn ? urn : registry;
  const Flavour& other = isUrn ? registry : urn;

  // A document of one flavour may have some declarations of the other.
  if (declaredAs(file.kind, other.declared) > declaredAs(file.kind, used.declared)) {
    return wrongFlavour(file, used, other);
  }
  if (declaredAs(file.kind, used.declared) > 0 && file.kind == FileKind::Dictionary) {
    return {"declares elements, but not by the prefix xs, by which they are looked for", "", false};
  }
  if (declaredAs(file.kind, used.declared) > 0) {
    return {triedAbstractGroups ? "declares abstract groups only, and not all of them have keys"
                                : "declares abstract groups only: add --abstract-groups",
            "", false};
  }
  const FileKind otherKind = file.kind == FileKind::Dictionary ? FileKind::Scheme : FileKind::Dictionary;
  const std::size_t ofOtherKind = declaredAs(otherKind, urn.declared) + declaredAs(otherKind, registry.declared);
  const std::string nothing = std::string("declares no ") + nounOf(file.kind) + "s";
  if (ofOtherKind > 0) {
    return {nothing + ", but " + counted(ofOtherKind, nounOf(otherKind)),
            std::string("Give it with --") + fileKindName(otherKind) + ".", true};
  }
  if (contents.targetNamespace == urnMultiplexNamespace || contents.targetNamespace == registryMultiplexNamespace) {
    return {nothing + ", as it is a multiplex schema", "Give it with --multiplex.", true};
  }
  return {nothing + ": no declaration at its top level has the annotation that marks one, in either flavour", "",
          false};
}

std::string remedyOfNoMultiplex(const SchemaFile& file) {
  const std::optional<SchemaContents> contents = schemaContents(file.path);
  if (!contents) return "";
  const std::size_t elements = contents->urn.elements + contents->registry.elements;
  const std::size_t groups = contents->urn.groups + contents->registry.groups;
  if (elements > 0) return "It declares " + counted(elements, "element") + ": give it with --dictionary.";
  if (groups > 0) return "It declares " + counted(groups, "group") + ": give it with --scheme.";
  return "A multiplex schema has the target namespace " + narrow(urnMultiplexNamespace) + " or " +
         narrow(registryMultiplexNamespace) +
         ", and nothing else of it matters: for schemas in the registry flavour, " + "whatever their edition, give " +
         shippedMultiplex() + "; for those in the URN flavour none is needed.";
}

}  // namespace MXF::Tessel::Tool
