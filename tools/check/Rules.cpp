#include "check/Rules.h"

#include "check/RuleFamilies.h"

#include <algorithm>
#include <iterator>

namespace MXF::Tessel::Tool {

namespace {

constexpr Rule rules[] = {
    {"load-failed", Severity::Error, Scope::Failures, "A file cannot be loaded.",
     "Correct the declaration; nothing that its file declares was loaded.", findFailedLoads},
    {"wrong-file", Severity::Error, Scope::Failures, "A file is of another kind or flavour than it was given as.",
     "Give each file with the option of its kind; --multiplex chooses the flavour of all.", findWrongFiles},
    {"wrong-root", Severity::Error, Scope::Files, "The root of a file is not that of an XML Schema.",
     "Correct the root, or its namespace: what reads XML Schemas refuses the file, though it may load here.",
     findWrongRoots},
    {"shared-xml-name", Severity::Error, Scope::Dictionary, "Two elements, or two sets, have one XML name.",
     "Give one of them another XML name; a schema that refers to this one gets only one of the two.",
     findSharedXmlNames},
    {"shared-local-tag", Severity::Error, Scope::Dictionary, "A local tag stands for two elements.",
     "Give one of them another local tag; a reader of a file knows elements of sets by their tags alone.",
     findSharedLocalTags},
    {"impossible-identifier", Severity::Error, Scope::Dictionary, "A label, key or local tag cannot be one.",
     "Correct it; labels and keys are registered, and each stands for one thing only.", findImpossibleIdentifiers},
    {"other-identifier", Severity::Warning, Scope::Dictionary, "A label or key is not one of an element or a set.",
     "Correct it: labels of elements begin with 06.0E.2B.34.01, keys of sets with 06.0E.2B.34.02 (SMPTE ST 336); only "
     "what is made from a UUID begins with a byte of 80 or more.",
     findIdentifiersOfOtherKinds},
    {"no-xml-name", Severity::Error, Scope::Dictionary, "An element has no XML name.",
     "Name the declaration with the attribute name; groups refer to elements by it.", findNamelessElements},
    {"no-declarations", Severity::Warning, Scope::Files, "A file declares nothing that can be loaded.",
     "Leave the file out, or annotate what it declares.", findFilesWithoutDeclarations},
    {"empty-dictionary", Severity::Error, Scope::Files, "No file declares an element.",
     "Give the schemas of elements with --dictionary.", findEmptyDictionary},
    {"left-out-abstract", Severity::Warning, Scope::Files, "The abstract groups of a scheme are left out.",
     "Give it a key: the abstract groups of a scheme are loaded only if all of them, and the groups of all base "
     "types, "
     "have keys of the flavour in use. Sets are without their abstract bases now.",
     findLeftOutAbstractGroups},
    {"unresolved-reference", Severity::Warning, Scope::Dictionary, "An element refers to sets that no scheme declares.",
     "Load the schemes that declare the sets with --scheme, or correct the reference.", findUnresolvedReferences},
    {"untargeted-reference", Severity::Warning, Scope::Dictionary, "A reference names no set.",
     "Name the sets in an xs:choice of xs:element with ref; nothing else is read as the target of a reference.",
     findUntargetedReferences},
    {"unknown-annotation", Severity::Warning, Scope::Dictionary, "An annotation is none that is read.",
     "Correct the source of the annotation; what it says is lost.", findUnknownAnnotations},
    {"incomplete-declaration", Severity::Warning, Scope::Dictionary,
     "An element or group lacks the annotation that marks it as one.",
     "Annotate an element with ElementUL, and a group with Key.", findUnmarkedDeclarations},
    {"not-read", Severity::Warning, Scope::Dictionary, "What is misplaced, included, empty or second is not read.",
     "Declare elements and groups at the top level, and annotate references in the types of groups.", findUnread},
    {"unbound-prefix", Severity::Warning, Scope::Dictionary, "A name has a prefix that stands for no namespace.",
     "Bind the prefix at the root of the schema, or correct it.", findUnboundPrefixes},
    {"wrong-import", Severity::Warning, Scope::Dictionary,
     "An imported schema is of another namespace than the import.",
     "Correct the namespace of the import, or its schemaLocation; what reads XML Schemas refuses the import.",
     findWrongImports},
    {"other-flavour", Severity::Warning, Scope::Dictionary,
     "Annotations of a declaration are of the other flavour only.",
     "Annotate the declaration in the flavour in use, too. All files are read in one flavour, which --multiplex "
     "chooses.",
     findOtherFlavour, "Annotations are of the other flavour only, and not read, at "},
    {"repeated-annotation", Severity::Warning, Scope::Dictionary, "A declaration has an annotation twice.",
     "Keep one of the two; what the second one says is lost.", findRepeatedAnnotations},
    {"repeated-attribute", Severity::Warning, Scope::Dictionary, "A set has an element twice.",
     "Keep one of the two references; values of one local tag or XML name cannot be told apart.",
     findRepeatedAttributes},
    {"reference-without-status", Severity::Warning, Scope::Dictionary,
     "A set refers to an element without a required status.",
     "Annotate the reference with a required status; without one it is no attribute of the set.",
     findReferencesWithoutStatus},
    {"missing-base", Severity::Warning, Scope::Dictionary, "The base of a set is not in the dictionary.",
     "Load the scheme that declares the base with --scheme; abstract groups are sets only if all of their scheme "
     "have keys.",
     findMissingBases},
    {"many-local-tags", Severity::Warning, Scope::Dictionary, "An element has two local tags.",
     "Use the same local tag in all sets; a reader may know only one of them.", findElementsOfManyTags},
    {"other-version", Severity::Warning, Scope::Dictionary, "Two labels, or two keys, differ in the version byte only.",
     "Keep one of them; labels that differ in their eighth byte only are the same to readers.",
     findLabelsOfOtherVersions},
    {"lost-value", Severity::Warning, Scope::Dictionary, "A distinguished value is of a type that has no text form.",
     "Take the annotation out, or give the element a type of which values can be written.", findLostValues},
    {"doubtful-value", Severity::Warning, Scope::Dictionary, "A distinguished value is not read as it is written.",
     "Correct the text of the annotation, or take the annotation out.", findDoubtfulValues},
    {"repeated-name", Severity::Note, Scope::Dictionary, "Two elements, or two sets, have one name.",
     "Tell them apart by label or key, or give one of them another name.", findRepeatedNames},
    {"unused-element", Severity::Note, Scope::Dictionary, "No set uses an element.",
     "Add the element to a set, load the scheme that uses it, or take it out.", findUnusedElements,
     "No set uses the elements "},
};

}  // namespace

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
  static const std::vector<Rule> all(std::begin(rules), std::end(rules));
  return all;
}

const Rule* findRule(const std::string& id) {
  const auto& all = allRules();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Rule& rule) { return rule.id == id; });
  return found == all.end() ? nullptr : &*found;
}

}  // namespace MXF::Tessel::Tool
