#include "check/Rules.h"

#include "check/RuleFamilies.h"

#include <algorithm>

namespace MXF::Tessel::Tool {

const char* severityName(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "error";
    case Severity::Warning:
      return "warning";
    case Severity::Note:
      break;
  }
  return "note";
}

const std::vector<Rule>& allRules() {
  static const std::vector<Rule> rules = {
      {"load-failed", Severity::Error, "A file cannot be loaded.",
       "Correct the declaration; nothing that its file declares was loaded.", findFailedLoads, Scope::Failures},
      {"wrong-file", Severity::Error, "A file is of another kind or flavour than it was given as.",
       "Give each file with the option of its kind; --multiplex chooses the flavour of all.", findWrongFiles,
       Scope::Failures},
      {"wrong-root", Severity::Error, "The root of a file is not that of an XML Schema.",
       "Correct the root, or its namespace: what reads XML Schemas refuses the file, though it may load here.",
       findWrongRoots, Scope::Files},
      {"empty-dictionary", Severity::Error, "No file declares an element.",
       "Give the schemas of elements with --dictionary.", findEmptyDictionary, Scope::Files},
      {"shared-xml-name", Severity::Error, "Two elements, or two sets, have one XML name.",
       "Give one of them another XML name; a schema that refers to this one gets only one of the two.",
       findSharedXmlNames, Scope::Dictionary},
      {"shared-local-tag", Severity::Error, "A local tag stands for two elements.",
       "Give one of them another local tag; a reader of a file knows elements of sets by their tags alone.",
       findSharedLocalTags, Scope::Dictionary},
      {"impossible-identifier", Severity::Error, "A label, key or local tag can be none.",
       "Correct it; labels and keys are registered, and each stands for one thing only.", findImpossibleIdentifiers,
       Scope::Dictionary},
      {"no-xml-name", Severity::Error, "An element has no XML name.",
       "Name the declaration with the attribute name; groups refer to elements by it.", findNamelessElements,
       Scope::Dictionary},
      {"no-declarations", Severity::Warning, "A file declares nothing that can be loaded.",
       "Leave the file out, or annotate what it declares.", findFilesWithoutDeclarations, Scope::Files},
      {"left-out-abstract", Severity::Warning, "The abstract groups of a scheme are left out.",
       "Give it a key: the abstract groups of a scheme are loaded only if all of them, and the groups of all base "
       "types, "
       "have keys of the flavour in use. Sets are without their abstract bases now.",
       findLeftOutAbstractGroups, Scope::Files},
      {"unresolved-reference", Severity::Warning, "An element refers to sets that no scheme declares.",
       "Load the schemes that declare the sets with --scheme, or correct the reference.", findUnresolvedReferences,
       Scope::Dictionary},
      {"untargeted-reference", Severity::Warning, "A reference names no set.",
       "Name the sets in an xs:choice of xs:element with ref; nothing else is read as the target of a reference.",
       findUntargetedReferences, Scope::Dictionary},
      {"unknown-annotation", Severity::Warning, "An annotation is none that is read.",
       "Correct the source of the annotation; what it says is lost.", findUnknownAnnotations, Scope::Dictionary},
      {"unbound-prefix", Severity::Warning, "A name has a prefix that stands for no namespace.",
       "Bind the prefix at the root of the schema, or correct it.", findUnboundPrefixes, Scope::Dictionary},
      {"wrong-import", Severity::Warning, "An imported schema is of another namespace than the import.",
       "Correct the namespace of the import, or its schemaLocation; what reads XML Schemas refuses the import.",
       findWrongImports, Scope::Dictionary},
      {"other-flavour", Severity::Warning, "Annotations of a declaration are of the other flavour only.",
       "Annotate the declaration in the flavour in use, too. All files are read in one flavour, which --multiplex "
       "chooses.",
       findOtherFlavour, Scope::Dictionary, "Annotations are of the other flavour only, and not read, at "},
      {"repeated-annotation", Severity::Warning, "A declaration has an annotation twice.",
       "Keep one of the two; what the second one says is lost.", findRepeatedAnnotations, Scope::Dictionary},
      {"repeated-attribute", Severity::Warning, "A set has an element twice.",
       "Keep one of the two references; values of one local tag or XML name cannot be told apart.",
       findRepeatedAttributes, Scope::Dictionary},
      {"reference-without-status", Severity::Warning, "A set refers to an element without a required status.",
       "Annotate the reference with a required status; without one it is no attribute of the set.",
       findReferencesWithoutStatus, Scope::Dictionary},
      {"missing-base", Severity::Warning, "The base of a set is not in the dictionary.",
       "Load the scheme that declares the base with --scheme; abstract groups are sets only if all of their scheme "
       "have keys.",
       findMissingBases, Scope::Dictionary},
      {"many-local-tags", Severity::Warning, "An element has two local tags.",
       "Use the same local tag in all sets; a reader may know only one of them.", findElementsOfManyTags,
       Scope::Dictionary},
      {"other-version", Severity::Warning, "Two labels, or two keys, differ in the version byte only.",
       "Keep one of them; labels that differ in their eighth byte only are the same to readers.",
       findLabelsOfOtherVersions, Scope::Dictionary},
      {"lost-value", Severity::Warning, "A distinguished value is of a type that has no text form.",
       "Take the annotation out, or give the element a type of which values can be written.", findLostValues,
       Scope::Dictionary},
      {"doubtful-value", Severity::Warning, "A distinguished value is not read as it is written.",
       "Correct the text of the annotation, or take the annotation out.", findDoubtfulValues, Scope::Dictionary},
      {"repeated-name", Severity::Note, "Two elements, or two sets, have one name.",
       "Tell them apart by label or key, or give one of them another name.", findRepeatedNames, Scope::Dictionary},
      {"unused-element", Severity::Note, "No set uses an element.",
       "Add the element to a set, load the scheme that uses it, or take it out.", findUnusedElements, Scope::Dictionary,
       "No set uses the elements "},
  };
  return rules;
}

const Rule* findRule(const std::string& id) {
  const auto& rules = allRules();
  const auto found = std::find_if(rules.begin(), rules.end(), [&](const Rule& rule) { return rule.id == id; });
  return found == rules.end() ? nullptr : &*found;
}

}  // namespace MXF::Tessel::Tool
