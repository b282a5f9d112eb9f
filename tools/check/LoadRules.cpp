// What became of the files.

#include "check/RuleFamilies.h"
#include "text/Similarity.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <Utils/TextConversion.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

namespace {

Place placeOf(const LoadRecord& load) {
  return {shownPath(Utils::stringToWstring(load.file.path.c_str()))};
}

/// The rest of a sentence about the file as a sentence of its own.
std::string sentence(const std::string& start, const std::string& rest) {
  return encode(printable(start + rest)) + ".";
}

/// What was not examined since the multiplex schema failed: a sentence.
std::string passedOverText(const std::vector<LoadRecord>& loads) {
  const auto count =
      std::count_if(loads.begin(), loads.end(), [](const LoadRecord& load) { return load.isPassedOver; });
  if (count == 0) return " The flavour is not known without it; all was examined in the URN flavour.";
  return " The flavour is not known without it: " + counted(static_cast<std::size_t>(count), std::string("file")) +
         (count == 1 ? " of another flavour, or that needs one, was" : " of another flavour, or that need one, were") +
         " not examined.";
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
  finding.remedy = encode(printable(load.explanation.remedy));
  if (load.file.kind == FileKind::Multiplex) finding.remedy += passedOverText(loads);
  for (const PlacedNote& note : load.explanation.related) {
    finding.related.push_back({placeAt(note.place), encode(printable(note.text))});
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

/// What was probably meant by a source that is none which is read; empty when it comes near to none.
std::string meantBy(const std::string& source) {
  std::vector<std::string> known;
  for (const Annotations* annotations : {&urnAnnotations, &registryAnnotations}) {
    for (const std::u16string_view each : annotations->sources()) known.push_back(narrowSource(each));
  }
  const std::vector<std::string> near = nearest(source, known);
  return near.empty() ? "" : near.front();
}

/// The annotation that a file has most often, best one that may be meant for one of those sought, with what was
/// probably meant.
std::string mostOfTheFile(const DeclarationScan& scan, const std::vector<std::string>& sought) {
  std::string most;
  std::string meant;
  std::size_t times = 0;
  for (const auto& [source, count] : scan.sources) {
    if (count < times || source.empty()) continue;
    const std::string meantByThis = meantBy(source);
    const bool isSought = std::find(sought.begin(), sought.end(), meantByThis) != sought.end();
    if (count == times && !isSought) continue;
    most = source;
    meant = meantByThis;
    times = count;
  }
  if (most.empty()) return " It has no annotations with a source.";
  return " Most often it has \"" + most + "\"." +
         (meant.empty() || meant == most ? "" : " Did you mean \"" + meant + "\"?");
}

/// What to do about a file that has no annotation which marks a declaration; empty when it has one.
std::string remedyOfNoAnnotation(const LoadRecord& load, const Subject& subject) {
  const DeclarationScan& scan = subject.scanOf(placeOf(load).path);
  const bool isDictionary = load.file.kind == FileKind::Dictionary;
  const auto sought = isDictionary ? &Annotations::elementLabel : &Annotations::groupKey;
  const std::string urn = narrowSource(urnAnnotations.*sought);
  const std::string registry = narrowSource(registryAnnotations.*sought);
  if (scan.sources.count(urn) + scan.sources.count(registry) > 0) return "";
  return std::string("Leave the file out, or annotate its ") + (isDictionary ? "elements" : "groups") + " with \"" +
         urn + "\" or, in the registry flavour, \"" + registry + "\"." + mostOfTheFile(scan, {urn, registry});
}

/// Locations of imports count from "./" when the file that is loaded is given without a folder.
std::string withoutHere(const std::string& place) {
  return place.substr(0, 2) == "./" ? place.substr(2) : place;
}

/// Whether a file failed to load for a fault of this place, which tells more of it.
bool hasFailedAt(const Place& place, const Subject& subject) {
  const auto& loads = subject.outcome().loads;
  return std::any_of(loads.begin(), loads.end(), [&](const LoadRecord& load) {
    if (!load.failure || !load.failure->place.isKnown()) return false;
    const Place failed = placeAt(load.failure->place);
    return failed.path == place.path && failed.line == place.line && failed.column == place.column;
  });
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
    findings.back().remedy = encode(printable(load.explanation.remedy));
  }
  return findings;
}

Findings findWrongRoots(const Subject& subject) {
  Findings findings;
  for (const Templates::WideString& path : subject.schemas()) {
    const DeclarationScan& scan = subject.scanOf(path);
    const std::optional<DeclarationScan::Root>& root = scan.wrongRoot;
    if (!root && scan.wrongPrefix) {
      findings.push_back({{path},
                          "The prefix xs, by which declarations are looked for, stands for namespace " +
                              encode(printable(*scan.wrongPrefix)) + ", and not for " + narrowSource(schemaNamespace) +
                              "."});
    }
    if (!root || hasFailedAt({path, root->position.first, root->position.second}, subject)) continue;
    const std::string given =
        '"' + encode(printable(root->name)) + "\" of " +
        (root->namespaceUri.empty() ? "no namespace" : "namespace " + encode(printable(root->namespaceUri)));
    findings.push_back(
        {{path, root->position.first, root->position.second},
         "The root is " + given + ", and not \"schema\" of namespace " + narrowSource(schemaNamespace) + "."});
  }
  return findings;
}

Findings findFilesWithoutDeclarations(const Subject& subject) {
  Findings findings;
  for (const LoadRecord& load : subject.outcome().loads) {
    if (!load.warning || load.isPassedOver) continue;
    findings.push_back({placeOf(load), sentence("The file ", *load.warning)});
    findings.back().remedy = remedyOfNoAnnotation(load, subject);
  }
  return findings;
}

Findings findEmptyDictionary(const Subject& subject) {
  const auto& loads = subject.outcome().loads;
  if (!subject.elements().empty() || subject.isIncomplete() || loads.empty()) return {};
  const bool isGiven = std::any_of(loads.begin(), loads.end(),
                                   [](const LoadRecord& load) { return load.file.kind == FileKind::Dictionary; });
  Findings findings{{placeOf(loads.back()), "No element was loaded from this file or those before it."}};
  if (isGiven)
    findings.back().remedy = "Correct what is given with --dictionary, as no-declarations tells of each file.";
  return findings;
}

Findings findLeftOutAbstractGroups(const Subject& subject) {
  Findings findings;
  std::map<std::string, std::size_t> known;  // many schemes may have their bases from one
  for (const LoadRecord& load : subject.outcome().loads) {
    if (!load.leftOut || !load.leftOut->isAbstract) continue;
    const Failure& failure = load.leftOut->failure;
    const Place place = failure.place.isKnown() ? placeAt(failure.place) : placeOf(load);
    const std::string leftOut = abstractGroupsWithKeys(subject.scanOf(placeOf(load).path));
    const std::string& why = load.leftOut->why;
    const auto [finding, isNew] =
        known.emplace(withoutHere(shownPlace(failure.place, load.file.path)) + why, findings.size());
    if (isNew) {
      std::string text = "Abstract groups are left out";
      if (!leftOut.empty()) text.append(" though they have keys (").append(leftOut).append(")");
      findings.push_back({place, encode(printable(text.append(", since ").append(why).append(".")))});
      findings.back().remedy = encode(printable(load.leftOut->remedy));
    }
    if (!isNew || place.path != placeOf(load).path) {
      findings[finding->second].related.push_back(
          {placeOf(load), "met while loading this file" + (leftOut.empty() ? "" : ", which has " + leftOut)});
    }
  }
  return findings;
}

}  // namespace MXF::Tessel::Tool
