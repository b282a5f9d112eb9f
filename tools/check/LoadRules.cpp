// What became of the files. For a failure the class of the exception decides what to do about it.

#include "check/RuleFamilies.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <Utils/TextConversion.h>

#include <algorithm>
#include <string_view>
#include <tuple>

namespace MXF::Tessel::Tool {

namespace {

/// What a class of exceptions means to somebody who wrote the schema.
struct ClassText {
  std::string_view className;
  const char* introduction;  ///< Goes before messages that hold nothing but a text of the schema.
  const char* remedy;
};

constexpr ClassText classTexts[] = {
    {"IOError", "", "Check that the file is there, can be read, and is no directory."},
    {"ParseError", "", "Correct the XML; is it a schema with the prefix xs and a target namespace?"},
    {"SAXParseException", "", "Correct the XML of the imported schema."},
    {"XQillaException", "", "Declare the prefix xs for the namespace of XML Schema, which queries need."},
    {"MetaElementAlreadyLoaded", "An element with this label is declared already: ",
     "Give one of the two elements another label, or load only one of their schemas."},
    {"MetaMetadataSetAlreadyLoaded", "A set with this key is declared already: ",
     "Give one of the two sets another key, or load only one of their schemes."},
    {"NotFound", "", "Load the schema that declares the element before this one, or correct the reference."},
    {"InvalidULDesignator",
     "Neither a label nor a key: ", "Write a label or key as 16 bytes of two hexadecimal digits, joined by dots."},
    {"InvalidValue", "", "Correct the text of the annotation."},
    {"TypeNotSupportedException", "", "Give the element one of the data types of MXF."},
};

/// The texts of the failure's class; empty ones for a class that has none.
ClassText classText(const Failure& failure) {
  for (const ClassText& row : classTexts) {
    if (row.className == failure.className) return row;
  }
  return {{}, "", ""};
}

Place placeOf(const LoadRecord& load) {
  return {Utils::stringToWstring(load.file.path.c_str())};
}

/// The rest of a sentence about the file as a sentence of its own.
std::string sentence(const std::string& start, const std::string& rest) {
  return encode(printable(Utils::stringToWstring((start + rest).c_str()))) + ".";
}

/// Adds where the dictionary holds what the failure says it holds already, when it came from another declaration.
template <class Things, class IdentifierOf>
void addHolder(Finding& finding, const Things& things, const Failure& failure, const IdentifierOf& identifierOf) {
  const std::string wanted = encode(printable(failure.message));
  const auto holder = std::find_if(things.begin(), things.end(),
                                   [&](const auto* thing) { return identifierText(identifierOf(*thing)) == wanted; });
  if (holder == things.end()) return;
  const Place place = placeAt((*holder)->origin());
  if (std::tie(place.path, place.line, place.column) ==
      std::tie(finding.place.path, finding.place.line, finding.place.column)) {
    finding.remedy = "Leave one of the two out: this declaration was loaded before.";
    return;
  }
  finding.related.push_back({place, quotedName(**holder) + " is declared here"});
}

/// Whether a schema of elements failed before a load did, so that its elements are not there to be referred to.
bool lacksElements(const LoadRecord& load, const std::vector<LoadRecord>& loads) {
  return std::any_of(loads.data(), &load, [](const LoadRecord& before) {
    return before.failure && before.file.kind == FileKind::Dictionary;
  });
}

Finding describe(const LoadRecord& load, const Subject& subject) {
  const Failure& failure = *load.failure;
  const ClassText texts = classText(failure);
  const std::u32string message = withoutExtraBlanks(printable(messageWithoutPlace(failure)));
  Finding finding(failure.place.isKnown() ? placeAt(failure.place) : placeOf(load),
                  texts.introduction + encode(message) + " [" + failure.className + "]");
  finding.remedy = load.advice ? sentence("What may be wrong: ", load.advice->text) : texts.remedy;
  if (failure.className == "NotFound" && lacksElements(load, subject.outcome().loads)) {
    finding.remedy = "First correct what failed to load before: it may declare the element.";
  }
  if (failure.className == "MetaElementAlreadyLoaded") {
    addHolder(
        finding, subject.elements(), failure,
        [](const auto& element) -> const auto& { return element.universalLabel(); });
  }
  if (failure.className == "MetaMetadataSetAlreadyLoaded") {
    addHolder(
        finding, subject.sets(), failure, [](const auto& set) -> const auto& { return set.key(); });
  }
  return finding;
}

Findings adviceOnSuccess(const Subject& subject, bool isMistake) {
  Findings findings;
  for (const LoadRecord& load : subject.outcome().loads) {
    if (load.failure || !load.advice || load.advice->isMistake != isMistake) continue;
    findings.push_back({placeOf(load), sentence("The file ", load.advice->text)});
  }
  return findings;
}

}  // namespace

Findings findFailedLoads(const Subject& subject) {
  Findings findings;
  for (const LoadRecord& load : subject.outcome().loads) {
    if (load.failure) findings.push_back(describe(load, subject));
  }
  return findings;
}

Findings findWrongFiles(const Subject& subject) {
  return adviceOnSuccess(subject, true);
}

Findings findFilesWithoutDeclarations(const Subject& subject) {
  return adviceOnSuccess(subject, false);
}

Findings findEmptyDictionary(const Subject& subject) {
  const auto& loads = subject.outcome().loads;
  const bool isKnownOtherwise = subject.isIncomplete() || !findWrongFiles(subject).empty();
  if (!subject.elements().empty() || isKnownOtherwise || loads.empty()) return {};
  return {{placeOf(loads.back()), "No element was loaded from this file or those before it."}};
}

}  // namespace MXF::Tessel::Tool
