// Changes as JSON. Entry point: differenceJson(); all else is local. The order of the members is part of the format.

#include "diff/DifferenceJson.h"

#include <Utils/TextConversion.h>

#include <utility>

namespace MXF::Tessel::Tool {

namespace {

Json dumpJson(const DictionaryDump& dump) {
  return {{"path", jsonString(Utils::stringToWstring(dump.path.c_str()))},
          {"targetNamespace", dump.targetNamespace},
          {"elements", dump.elements.size()},
          {"sets", dump.sets.size()}};
}

Json subjectJson(const std::optional<ChangedThing>& subject, const char* idMember) {
  if (!subject) return nullptr;
  return {{idMember, subject->id}, {"name", subject->name.empty() ? Json() : Json(subject->name)}};
}

Json changeJson(const Change& change, const std::vector<Change>& changes) {
  const ChangeRule& rule = ruleOf(change.kind);
  return {{"kind", rule.id},
          {"class", className(rule)},
          {"element", subjectJson(change.element, "label")},
          {"set", subjectJson(change.set, "key")},
          {"old", change.before},
          {"new", change.after},
          {"sameAs", change.sameAs ? Json(subjectOf(changes[*change.sameAs]).id) : Json()}};
}

}  // namespace

std::string differenceJson(const DictionaryDump& before, const DictionaryDump& after,
                           const std::vector<Change>& changes) {
  const ChangeCounts counts = countChanges(changes);
  Json list = Json::array();
  for (const Change& change : changes) list.push_back(changeJson(change, changes));
  return writeJson({{"old", dumpJson(before)},
                    {"new", dumpJson(after)},
                    {"summary", {{"breaking", counts.breaking}, {"compatible", counts.compatible}}},
                    {"changes", std::move(list)}});
}

}  // namespace MXF::Tessel::Tool
