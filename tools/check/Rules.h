#pragma once

#include "check/Finding.h"
#include "check/Subject.h"

#include <string>
#include <vector>

namespace MXF::Tessel::Tool {

/// How much a finding matters. Errors make a dictionary that programs cannot rely on; what is a warning may be meant;
/// a note tells.
enum class Severity { Error, Warning, Note };

/// "error", "warning" or "note".
const char* severityName(Severity severity);

/// When a rule applies.
enum class Scope {
  Failures,    ///< Always, since what it finds is why the rest is not there.
  Files,       ///< It is about the files and not about the dictionary: unless it is turned off by its id.
  Dictionary,  ///< When it is chosen, or no rule is, unless it is turned off.
};

/// One thing that schemas are examined for.
struct Rule {
  const char* id;  ///< Lower-case words joined by hyphens. Never changes, since configurations and reports hold it.
  Severity severity;
  Scope scope;
  const char* summary;  ///< What it finds: a sentence.
  const char* remedy;   ///< What to do about it: a sentence.
  Findings (*examine)(const Subject& subject);
  /// What comes before the names when many findings of one file are told as one; null when each is told.
  const char* many = nullptr;
};

/// All rules, errors first; only that of an empty dictionary follows the warnings of why it is empty.
const std::vector<Rule>& allRules();

/// The rule with that id, or null.
const Rule* findRule(const std::string& id);

}  // namespace MXF::Tessel::Tool
