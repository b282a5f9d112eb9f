// What became of the files.

#include "check/RuleFamilies.h"
#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <Utils/TextConversion.h>

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

}  // namespace MXF::Tessel::Tool
