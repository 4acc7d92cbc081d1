#include <nlohmann/json.hpp>

#include "check/Reports.h"

namespace check {

namespace {

using Json = nlohmann::ordered_json;

// Paths are bytes of any kind; what is no UTF-8 in them is replaced.
void Write(std::ostream& stream, const Json& json) {
  stream << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

// A path as the relative or absolute reference that a URI allows.
std::string UriOf(const std::string& path) {
  constexpr char kPlain[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string uri;
  if (path.front() == '/') {
    uri = "file://";
  }
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::string_view(kPlain).find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += '%';
      uri += kDigits[byte / 16];
      uri += kDigits[byte % 16];
    }
  }
  return uri;
}

Json SarifRules() {
  Json rules = Json::array();
  for (const RuleEntry& entry : Rules()) {
    Json rule;
    rule["id"] = entry.name;
    rule["shortDescription"]["text"] = entry.description;
    rule["defaultConfiguration"]["level"] = NameOf(entry.severity);
    rules.push_back(rule);
  }
  return rules;
}

Json SarifResult(const Finding& finding, const Charset& utf8) {
  const RuleEntry& rule = EntryOf(finding.rule);
  Json location;
  location["artifactLocation"]["uri"] = UriOf(finding.place.file);
  location["region"]["startLine"] = finding.place.line;
  location["region"]["startColumn"] = finding.place.column;
  Json result;
  result["ruleId"] = rule.name;
  result["ruleIndex"] = static_cast<int>(rule.rule);
  result["level"] = NameOf(rule.severity);
  result["message"]["text"] = utf8.FromLatin1(finding.text);
  result["locations"][0]["physicalLocation"] = location;
  return result;
}

}  // namespace

void WriteJson(std::ostream& stream, const Checker& checker) {
  const Charset utf8("UTF-8");
  Json report;
  report["findings"] = Json::array();
  for (const Finding& finding : checker.GetFindings()) {
    const RuleEntry& rule = EntryOf(finding.rule);
    Json item;
    item["file"] = finding.place.file;
    item["line"] = finding.place.line;
    item["column"] = finding.place.column;
    item["severity"] = NameOf(rule.severity);
    item["rule"] = rule.name;
    item["text"] = utf8.FromLatin1(finding.text);
    report["findings"].push_back(item);
  }
  report["errors"] = Count(checker.GetFindings(), Severity::kError);
  report["warnings"] = Count(checker.GetFindings(), Severity::kWarning);
  report["files"] = checker.FileCount();
  Write(stream, report);
}

void WriteSarif(std::ostream& stream, const Checker& checker) {
  const Charset utf8("UTF-8");
  Json run;
  Json& driver = run["tool"]["driver"];
  driver["name"] = "vehicle-units";
  driver["version"] = VEHICLE_UNITS_VERSION;
  driver["rules"] = SarifRules();
  run["columnKind"] = "unicodeCodePoints";
  run["results"] = Json::array();
  for (const Finding& finding : checker.GetFindings()) {
    run["results"].push_back(SarifResult(finding, utf8));
  }
  Json report;
  report["$schema"] = "https://json.schemastore.org/sarif-2.1.0.json";
  report["version"] = "2.1.0";
  report["runs"][0] = run;
  Write(stream, report);
}

}  // namespace check
