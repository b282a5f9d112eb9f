#include "text/FindingsText.h"

#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <Utils/TextConversion.h>

#include <limits>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t remedyColumn = 4;
constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

std::u32string wide(const std::string& text) {
  return printable(Utils::stringToWstring(text.c_str()));
}

std::u32string placeText(const Place& place) {
  const std::u32string path = printable(place.path);
  return place.line == 0 ? path + U":" : path + U":" + decimal(place.line) + U":" + decimal(place.column) + U":";
}

Style styleOf(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return Style::Error;
    case Severity::Warning:
      return Style::Warning;
    case Severity::Note:
      break;
  }
  return Style::Hint;
}

/// One line however long it is, as programs that read it expect.
void appendLine(std::string& page, const Place& place, Severity severity, const std::u32string& message) {
  const std::u32string where = placeText(place);
  const std::u32string kind = fromAscii(severityName(severity)) + U":";
  const std::size_t kindColumn = columnsOf(where) + 1;
  appendRow(page, {{0, unlimited, where, Style::Name},
                   {kindColumn, unlimited, kind, styleOf(severity)},
                   {kindColumn + kind.size() + 1, unlimited, message}});
}

void appendFinding(std::string& page, const Finding& finding) {
  appendLine(page, finding.place, finding.rule->severity,
             wide(finding.message) + U" [" + fromAscii(finding.rule->id) + U"]");
  for (const RelatedPlace& related : finding.related) {
    appendLine(page, related.place, Severity::Note, wide(related.message));
  }
}

std::u32string counted(std::size_t number, const std::u32string& noun) {
  return decimal(number) + U" " + noun + (number == 1 ? U"" : U"s");
}

void appendSummary(std::string& page, const CheckResult& result) {
  if (!page.empty()) page += '\n';
  appendParagraph(page, 0,
                  U"Checked " + counted(result.elements, U"element") + U" and " + counted(result.sets, U"set") +
                      U" of " + counted(result.files, U"file") + U": " +
                      counted(result.count(Severity::Error), U"error") + U", " +
                      counted(result.count(Severity::Warning), U"warning") + U", " +
                      counted(result.count(Severity::Note), U"note") + U".");
  if (result.sets == 0) {
    appendParagraph(page, 0, U"No set was loaded: unused elements and unresolved references were not looked for.");
  } else if (result.isIncomplete) {
    appendParagraph(page, 0, U"Not all files were loaded: unused elements were not looked for.");
  }
}

}  // namespace

std::string findingsText(const CheckResult& result, bool withSummary) {
  std::string page;
  for (std::size_t i = 0; i < result.findings.size(); ++i) {
    const Finding& finding = result.findings[i];
    appendFinding(page, finding);
    const bool isRepeated = i + 1 < result.findings.size() && result.findings[i + 1].remedy == finding.remedy;
    if (!isRepeated) appendParagraph(page, remedyColumn, wide(finding.remedy), Style::Hint);
  }
  if (withSummary) appendSummary(page, result);
  return page;
}

}  // namespace MXF::Tessel::Tool
