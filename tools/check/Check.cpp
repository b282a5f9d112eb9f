#include "check/Check.h"

#include <algorithm>
#include <utility>

namespace MXF::Tessel::Tool {

namespace {

bool holds(const std::vector<std::string>& ids, const Rule& rule) {
  return std::find(ids.begin(), ids.end(), rule.id) != ids.end();
}

bool applies(const Rule& rule, const RuleSelection& selection) {
  if (rule.scope == Scope::Failures) return true;
  if (holds(selection.disabled, rule)) return false;
  return rule.scope == Scope::Files || selection.only.empty() || holds(selection.only, rule);
}

void addFindings(const Rule& rule, const Subject& subject, Findings& all) {
  Findings found = rule.examine(subject);
  std::vector<Finding*> inOrder;
  for (Finding& finding : found) inOrder.push_back(&finding);
  std::stable_sort(inOrder.begin(), inOrder.end(),
                   [&](const Finding* a, const Finding* b) { return subject.comesBefore(a->place, b->place); });
  for (Finding* finding : inOrder) {
    finding->rule = &rule;
    if (finding->remedy.empty()) finding->remedy = rule.remedy;
    all.push_back(std::move(*finding));
  }
}

}  // namespace

std::size_t CheckResult::count(Severity severity) const {
  return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(), [severity](const Finding& finding) {
    return finding.rule->severity == severity;
  }));
}

CheckResult check(const LoadOutcome& outcome, const RuleSelection& selection) {
  const DictionaryIndex index(outcome.dictionary);
  const Subject subject(outcome, index);
  CheckResult result{outcome.loads.size(), index.elements().size(), index.sets().size(), subject.isIncomplete(), {}};
  for (const Rule& rule : allRules()) {
    if (applies(rule, selection)) addFindings(rule, subject, result.findings);
  }
  return result;
}

}  // namespace MXF::Tessel::Tool
