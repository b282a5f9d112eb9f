#include "json/FindingsJson.h"

#include "json/JsonText.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace MXF::Tessel::Tool {

namespace {

Json placeJson(const Place& place) {
  const bool isWhole = place.line == 0;
  return {{"path", jsonString(place.path)},
          {"line", isWhole ? Json() : Json(place.line)},
          {"column", isWhole ? Json() : Json(place.column)}};
}

Json findingJson(const Finding& finding) {
  Json related = Json::array();
  for (const RelatedPlace& other : finding.related) {
    related.push_back({{"place", placeJson(other.place)}, {"message", other.message}});
  }
  return {{"rule", finding.rule->id},          {"severity", severityName(finding.rule->severity)},
          {"place", placeJson(finding.place)}, {"message", finding.message},
          {"remedy", finding.remedy},          {"related", std::move(related)}};
}

}  // namespace

std::string findingsJson(const CheckResult& result) {
  Json findings = Json::array();
  for (const Finding& finding : result.findings) findings.push_back(findingJson(finding));
  return writeJson({{"files", result.files},
                    {"elements", result.elements},
                    {"sets", result.sets},
                    {"errors", result.count(Severity::Error)},
                    {"warnings", result.count(Severity::Warning)},
                    {"notes", result.count(Severity::Note)},
                    {"findings", std::move(findings)}});
}

}  // namespace MXF::Tessel::Tool
