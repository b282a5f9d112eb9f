// The form that development sites and editors read. Entry point: findingsSarif(); all else is local.

#include "json/FindingsSarif.h"

#include "json/JsonText.h"

#include <Utils/TextConversion.h>

#include <nlohmann/json.hpp>

#include <string_view>
#include <utility>

namespace MXF::Tessel::Tool {

namespace {

/// A path as a reference of RFC 3986: bytes that are not allowed in one are escaped. A colon is, too, lest what is
/// before it be taken for a scheme. An absolute path becomes a URI of its own.
std::string uriOf(const Templates::WideString& path) {
  constexpr std::string_view allowed =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/!$&'()*+,;=@";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string uri = path.empty() || path.front() != L'/' ? "" : "file://";
  for (const char character : Utils::wstringToString(path.c_str())) {
    const auto byte = static_cast<unsigned char>(character);
    if (allowed.find(character) != std::string_view::npos) {
      uri += character;
    } else {
      uri += {'%', digits[byte >> 4U], digits[byte & 0xFU]};
    }
  }
  return uri;
}

Json messageJson(const std::string& text) {
  return {{"text", text}};
}

Json locationJson(const Place& place) {
  Json physical = {{"artifactLocation", {{"uri", uriOf(place.path)}}}};
  if (place.line != 0) physical["region"] = {{"startLine", place.line}, {"startColumn", place.column}};
  return {{"physicalLocation", std::move(physical)}};
}

Json ruleJson(const Rule& rule) {
  return {{"id", rule.id},
          {"shortDescription", messageJson(rule.summary)},
          {"fullDescription", messageJson(rule.summary)},
          {"help", messageJson(rule.remedy)},
          {"defaultConfiguration", {{"level", severityName(rule.severity)}}}};
}

Json resultJson(const Finding& finding) {
  Json result = {{"ruleId", finding.rule->id},
                 {"ruleIndex", finding.rule - allRules().data()},
                 {"level", severityName(finding.rule->severity)},
                 {"message", messageJson(finding.message + '\n' + finding.remedy)},
                 {"locations", Json::array({locationJson(finding.place)})}};
  Json related = Json::array();
  for (const RelatedPlace& other : finding.related) {
    Json location = {{"id", related.size()}};
    location.update(locationJson(other.place));
    location["message"] = messageJson(other.message);
    related.push_back(std::move(location));
  }
  if (!related.empty()) result["relatedLocations"] = std::move(related);
  return result;
}

}  // namespace

std::string findingsSarif(const CheckResult& result) {
  Json rules = Json::array();
  for (const Rule& rule : allRules()) rules.push_back(ruleJson(rule));
  Json results = Json::array();
  for (const Finding& finding : result.findings) results.push_back(resultJson(finding));
  Json driver = {{"name", "mxf-metadict"}, {"version", TESSELMXF_VERSION}, {"rules", std::move(rules)}};
  Json run = {
      {"tool", {{"driver", std::move(driver)}}}, {"columnKind", "utf16CodeUnits"}, {"results", std::move(results)}};
  return writeJson(
      {{"$schema", "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json"},
       {"version", "2.1.0"},
       {"runs", Json::array({std::move(run)})}});
}

}  // namespace MXF::Tessel::Tool
