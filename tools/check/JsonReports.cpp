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
  std::string uri = path.front() == '/' ? "file://" : "";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::string_view(kPlain).find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += {'%', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return uri;
}

Json SarifRules() {
  Json rules = Json::array();
  for (const RuleEntry& rule : Rules()) {
    rules.push_back({{"id", rule.name},
                     {"shortDescription", {{"text", rule.description}}},
                     {"defaultConfiguration", {{"level", NameOf(rule.severity)}}}});
  }
  return rules;
}

Json SarifResult(const Finding& finding, const Charset& utf8) {
  const RuleEntry& rule = EntryOf(finding.rule);
  const Json region{{"startLine", finding.place.line}, {"startColumn", finding.place.column}};
  const Json location{{"artifactLocation", {{"uri", UriOf(finding.place.file)}}},
                      {"region", region}};
  return {{"ruleId", rule.name},
          {"ruleIndex", static_cast<int>(rule.rule)},
          {"level", NameOf(rule.severity)},
          {"message", {{"text", utf8.FromLatin1(finding.text)}}},
          {"locations", Json::array({{{"physicalLocation", location}}})}};
}

}  // namespace

void WriteJson(std::ostream& stream, const Checker& checker) {
  const Charset utf8("UTF-8");
  Json findings = Json::array();
  for (const Finding& finding : checker.GetFindings()) {
    const RuleEntry& rule = EntryOf(finding.rule);
    findings.push_back({{"file", finding.place.file},
                        {"line", finding.place.line},
                        {"column", finding.place.column},
                        {"severity", NameOf(rule.severity)},
                        {"rule", rule.name},
                        {"text", utf8.FromLatin1(finding.text)}});
  }
  Write(stream, {{"findings", findings},
                 {"errors", Count(checker.GetFindings(), Severity::kError)},
                 {"warnings", Count(checker.GetFindings(), Severity::kWarning)},
                 {"files", checker.FileCount()}});
}

void WriteSarif(std::ostream& stream, const Checker& checker) {
  const Charset utf8("UTF-8");
  Json results = Json::array();
  for (const Finding& finding : checker.GetFindings()) {
    results.push_back(SarifResult(finding, utf8));
  }
  const Json driver{
      {"name", "vehicle-units"}, {"version", VEHICLE_UNITS_VERSION}, {"rules", SarifRules()}};
  const Json run{
      {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", results}};
  Write(stream, {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                 {"version", "2.1.0"},
                 {"runs", Json::array({run})}});
}

}  // namespace check
