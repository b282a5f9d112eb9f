#include "text/FindingsText.h"

#include "text/TextLayout.h"
#include "text/Unicode.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace MXF::Tessel::Tool {

namespace {

constexpr std::size_t remedyColumn = 4;
constexpr std::size_t continuationColumn = 6;
constexpr std::size_t leastWidth = 20;  ///< Of a message beside a place that takes the whole line.
constexpr std::size_t mostAlike = 5;    ///< Findings of a rule in one file that are told one by one.
constexpr std::size_t namedOfMany = 3;
constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

/// What is written so far, and the columns that its lines may take.
struct Page {
  std::string text;
  std::size_t width;
};

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

void appendWrapped(Page& page, std::size_t column, std::u32string_view text, Style style = Style::Plain) {
  const std::size_t width = page.width == unlimited ? unlimited : page.width - column;
  appendRow(page.text, {{column, width, std::u32string(text), style}});
}

/// The place comes first on its line, where editors look for it; what does not fit follows, indented.
void appendMessage(Page& page, const Place& place, Severity severity, std::u32string_view message) {
  const std::u32string where = placeText(place);
  const std::u32string kind = fromAscii(severityName(severity)) + U":";
  const std::size_t kindColumn = columnsOf(where) + 1;
  const std::size_t column = kindColumn + kind.size() + 1;
  const std::size_t width = column + leastWidth < page.width ? page.width - column : leastWidth;
  const std::u32string first = wrap(message, width).front();
  appendRow(page.text, {{0, unlimited, where, Style::Name},
                        {kindColumn, unlimited, kind, styleOf(severity)},
                        {column, unlimited, first}});
  message.remove_prefix(first.size());
  if (!message.empty() && message.front() == U' ') message.remove_prefix(1);
  if (!message.empty()) appendWrapped(page, continuationColumn, message);
}

std::u32string ruleText(const Finding& finding) {
  return U" [" + fromAscii(finding.rule->id) + U"]";
}

void appendFinding(Page& page, const Finding& finding) {
  appendMessage(page, finding.place, finding.rule->severity,
                printable(finding.shortMessage.empty() ? finding.message : finding.shortMessage) + ruleText(finding));
  for (const RelatedPlace& related : finding.related) {
    appendMessage(page, related.place, Severity::Note, printable(related.message));
  }
}

using ShownFindings = std::vector<const Finding*>;

/// How many findings from one on are told as one: those of a rule in one file, if they are many.
std::size_t toldAsOne(const ShownFindings& findings, std::size_t start) {
  const Finding& first = *findings[start];
  if (first.rule->many == nullptr) return 1;
  std::size_t end = start + 1;
  while (end < findings.size() && findings[end]->rule == first.rule && findings[end]->place.path == first.place.path)
    ++end;
  return end - start > mostAlike ? end - start : 1;
}

void appendMany(Page& page, const ShownFindings& findings, std::size_t start, std::size_t count) {
  const Finding& first = *findings[start];
  std::string names;
  for (std::size_t i = start; i < start + namedOfMany; ++i) names += (i == start ? "" : ", ") + findings[i]->name;
  appendMessage(page, first.place, first.rule->severity,
                printable(first.rule->many + names + " and " + std::to_string(count - namedOfMany) +
                          " more of this file; --format json tells each.") +
                    ruleText(first));
}

/// The namespaces that short messages left out, each once.
void appendNamespaces(Page& page, const std::vector<std::string>& namespaces) {
  if (namespaces.empty()) return;
  appendWrapped(page, remedyColumn, namespaces.size() == 1 ? U"Namespace of the sets:" : U"Namespaces of the sets:",
                Style::Hint);
  for (const std::string& uri : namespaces) appendWrapped(page, continuationColumn, printable(uri), Style::Hint);
}

void appendFindings(Page& page, const ShownFindings& findings) {
  std::vector<std::string> namespaces;
  for (std::size_t i = 0; i < findings.size();) {
    const Finding& finding = *findings[i];
    const std::size_t count = toldAsOne(findings, i);
    if (count > 1) {
      appendMany(page, findings, i, count);
    } else {
      appendFinding(page, finding);
    }
    for (const std::string& uri : finding.namespaces) {
      if (std::find(namespaces.begin(), namespaces.end(), uri) == namespaces.end()) namespaces.push_back(uri);
    }
    i += count;
    if (i < findings.size() && findings[i]->remedy == finding.remedy) continue;
    appendWrapped(page, remedyColumn, printable(finding.remedy), Style::Hint);
    appendNamespaces(page, namespaces);
    namespaces.clear();
  }
}

void appendSummary(Page& page, const CheckResult& result) {
  if (!page.text.empty()) page.text += '\n';
  appendWrapped(page, 0,
                U"Checked " + counted(result.elements, U"element") + U" and " + counted(result.sets, U"set") + U" of " +
                    counted(result.files, U"file") + U": " + counted(result.count(Severity::Error), U"error") + U", " +
                    counted(result.count(Severity::Warning), U"warning") + U", " +
                    counted(result.count(Severity::Note), U"note") + U".");
  if (result.sets == 0) {
    appendWrapped(page, 0, U"No set was loaded: unused elements and unresolved references were not looked for.");
  } else if (result.isIncomplete) {
    appendWrapped(page, 0, U"Not all files were loaded: unused elements were not looked for.");
  }
}

}  // namespace

std::string findingsText(const CheckResult& result, const FindingsForm& form) {
  ShownFindings shown;
  for (const Finding& finding : result.findings) {
    if (finding.rule->severity <= form.least) shown.push_back(&finding);
  }
  Page page{{}, form.isWrapped ? pageWidth : unlimited};
  appendFindings(page, shown);
  if (form.withSummary) appendSummary(page, result);
  return page.text;
}

}  // namespace MXF::Tessel::Tool
