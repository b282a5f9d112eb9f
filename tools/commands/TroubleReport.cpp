#include "commands/TroubleReport.h"

#include "text/Unicode.h"

namespace MXF::Tessel::Tool {

void TroubleReport::tell(const LoadRecord& record) {
  if (record.failure) return tellFailure(record);
  if (output_.quiet) return;
  if (record.isPassedOver) {
    if (told_.insert(*record.warning).second) tellNote(record.file.path, "The file " + *record.warning + ".");
    return;
  }
  if (record.warning) reportProblem(output_, record.file.path, Style::Warning, *record.warning);
  if (record.leftOut) tellLeftOutGroups(record);
}

void TroubleReport::tellLeftOutGroups(const LoadRecord& record) {
  const LeftOutGroups& leftOut = *record.leftOut;
  const std::string place = shownPlace(leftOut.failure.place, record.file.path);
  // Many schemes may have their bases from one, and so the same reason.
  if (!told_.insert(place + leftOut.why).second) return;
  reportProblem(output_, place, Style::Warning,
                leftOut.what + " of " + record.file.path + " are left out, since " + leftOut.why +
                    "; sets that extend them are shown without these bases");
  tellNote(place, leftOut.remedy);
}

void TroubleReport::tellError(const std::string& path, const std::string& text) const {
  reportProblem(output_, path, Style::Error, text);
}

void TroubleReport::tellNote(const std::string& place, const std::string& text) const {
  if (!output_.quiet && !text.empty()) reportProblem(output_, place, Style::Hint, text);
}

void TroubleReport::tellFailure(const LoadRecord& record) {
  const Failure& failure = *record.failure;
  const std::string& file = record.file.path;
  const std::string place = shownPlace(failure.place, file);
  const std::string className = " [" + failure.className + "]";
  if (record.sameAs) return tellError(file, "stopped by the error at " + place + ", which is told above" + className);

  tellError(place, narrow(messageWithoutPlace(failure)) + className);
  for (const PlacedNote& note : record.explanation.related) tellNote(shownPlace(note.place, file), note.text);
  const Explanation& explanation = record.explanation;
  const std::string meaning =
      explanation.meaning.empty() ? "" : explanation.meaning + ": \"" + narrow(failure.message) + "\". ";
  if (told_.insert(meaning + explanation.remedy).second) tellNote(place, meaning + explanation.remedy);
  if (failure.place.isKnown() && narrow(failure.place.path()) != file) {
    tellNote(file, "The error was met while loading this file, which needs the other one.");
  }
}

}  // namespace MXF::Tessel::Tool
