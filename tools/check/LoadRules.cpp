// What became of the files.

#include "check/RuleFamilies.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <Utils/TextConversion.h>

#include <map>
#include <optional>

namespace MXF::Tessel::Tool {

namespace {

Place placeOf(const LoadRecord& load) {
  return {shownPath(Utils::stringToWstring(load.file.path.c_str()))};
}

/// The rest of a sentence about the file as a sentence of its own.
std::string sentence(const std::string& start, const std::string& rest) {
  return encode(printable(Utils::stringToWstring((start + rest).c_str()))) + ".";
}

/// The failure as a finding, with the other files that it was met with.
Finding describe(const std::vector<LoadRecord>& loads, std::size_t number) {
  const LoadRecord& load = loads[number];
  const Failure& failure = *load.failure;
  const std::u32string message = printable(messageWithoutPlace(failure));
  const std::string text = load.explanation.meaning.empty() ? encode(withoutExtraBlanks(message))
                                                            : load.explanation.meaning + ": \"" + encode(message) + '"';
  Finding finding(failure.place.isKnown() ? placeAt(failure.place) : placeOf(load),
                  text + " [" + failure.className + "]");
  finding.remedy = encode(printable(Utils::stringToWstring(load.explanation.remedy.c_str())));
  for (const PlacedNote& note : load.explanation.related) {
    finding.related.push_back({placeAt(note.place), encode(printable(Utils::stringToWstring(note.text.c_str())))});
  }
  if (finding.place.path != placeOf(load).path)
    finding.related.push_back({placeOf(load), "met while loading this file"});
  for (const LoadRecord& other : loads) {
    if (other.sameAs == number) finding.related.push_back({placeOf(other), "also met while loading this file"});
  }
  return finding;
}

/// The abstract groups of a file that have keys all the same, as a list of quoted names.
std::string abstractGroupsWithKeys(const DeclarationScan& scan) {
  std::string names;
  for (const auto& [position, declaration] : scan.declarations) {
    if (!declaration.isAbstract || declaration.key.empty()) continue;
    names += (names.empty() ? "" : ", ") + ('"' + encode(printable(declaration.name)) + '"');
  }
  return names;
}

std::string whyWithoutAbstractGroups(const Failure& failure, const Subject& subject) {
  const Place place = placeAt(failure.place);
  const auto& declarations = subject.scanOf(place.path).declarations;
  const auto group = declarations.find({place.line, place.column});
  if (group != declarations.end() && group->second.key.empty()) {
    return "group \"" + encode(printable(group->second.name)) + "\" has no key of the " +
           annotationsOf(subject.outcome().targetNamespace).flavour + " flavour";
  }
  return "they cannot be loaded: " + encode(withoutExtraBlanks(printable(messageWithoutPlace(failure)))) + " [" +
         failure.className + "]";
}

bool isWrongFile(const LoadRecord& load) {
  return load.failure && load.failure->className == wrongFileClass;
}

}  // namespace

Findings findFailedLoads(const Subject& subject) {
  Findings findings;
  const std::vector<LoadRecord>& loads = subject.outcome().loads;
  for (std::size_t i = 0; i < loads.size(); ++i) {
    if (loads[i].failure && !isWrongFile(loads[i]) && !loads[i].sameAs) findings.push_back(describe(loads, i));
  }
  return findings;
}

Findings findWrongFiles(const Subject& subject) {
  Findings findings;
  for (const LoadRecord& load : subject.outcome().loads) {
    if (!isWrongFile(load)) continue;
    findings.push_back({placeOf(load), encode(printable(L"The file " + load.failure->message)) + "."});
    findings.back().remedy = encode(printable(Utils::stringToWstring(load.explanation.remedy.c_str())));
  }
  return findings;
}

Findings findWrongRoots(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    const std::optional<DeclarationScan::Root>& root = subject.scanOf(path).wrongRoot;
    if (!root) continue;
    const std::string given = '"' + encode(printable(root->name)) + "\" of " +
                              (root->namespaceUri.empty() ? "no namespace"
                                                          : "namespace " + encode(printable(root->namespaceUri)));
    findings.push_back({{path, root->position.first, root->position.second},
                        "The root is " + given + ", and not \"schema\" of namespace " + narrowSource(schemaNamespace) +
                            "."});
  }
  return findings;
}

Findings findFilesWithoutDeclarations(const Subject& subject) {
  Findings findings;
  for (const LoadRecord& load : subject.outcome().loads) {
    if (load.warning) findings.push_back({placeOf(load), sentence("The file ", *load.warning)});
  }
  return findings;
}

Findings findEmptyDictionary(const Subject& subject) {
  const auto& loads = subject.outcome().loads;
  if (!subject.elements().empty() || subject.isIncomplete() || loads.empty()) return {};
  return {{placeOf(loads.back()), "No element was loaded from this file or those before it."}};
}

Findings findLeftOutAbstractGroups(const Subject& subject) {
  Findings findings;
  std::map<std::string, std::size_t> known;  // many schemes may have their bases from one
  for (const LoadRecord& load : subject.outcome().loads) {
    if (!load.withAbstractGroups) continue;
    const Failure& failure = *load.withAbstractGroups;
    const Place place = failure.place.isKnown() ? placeAt(failure.place) : placeOf(load);
    const std::string leftOut = abstractGroupsWithKeys(subject.scanOf(placeOf(load).path));
    const std::string why = whyWithoutAbstractGroups(failure, subject);
    const auto [finding, isNew] = known.emplace(shownPlace(failure.place, load.file.path) + why, findings.size());
    if (isNew) {
      findings.push_back({place, "Abstract groups are left out" +
                                     (leftOut.empty() ? "" : " though they have keys (" + leftOut + ")") + ", since " +
                                     why + "."});
    }
    if (!isNew || place.path != placeOf(load).path) {
      findings[finding->second].related.push_back(
          {placeOf(load), "met while loading this file" + (leftOut.empty() ? "" : ", which has " + leftOut)});
    }
  }
  return findings;
}

}  // namespace MXF::Tessel::Tool
