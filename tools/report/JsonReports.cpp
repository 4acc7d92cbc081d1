#include <nlohmann/json.hpp>

#include "check/RuleEntry.h"
#include "check/Rules.h"
#include "report/Reports.h"

namespace report {

namespace {

using Json = nlohmann::ordered_json;

// Paths are bytes of any kind; what is no UTF-8 in them is replaced. JSON may hold the control
// characters from U+007F on as they are, but the output may go to a terminal.
void Write(std::ostream& stream, const Json& json) {
  const std::string text = json.dump(2, ' ', false, Json::error_handler_t::replace);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\x7F') {
      stream << "\\u007F";
    } else if (text[i] == '\xC2' && static_cast<unsigned char>(text[i + 1]) < 0xA0) {
      stream << "\\u00" << std::hex << (text[++i] & 0xFF) << std::dec;
    } else {
      stream << text[i];
    }
  }
  stream << '\n';
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
  for (const check::Rule* rule : check::Rules()) {
    Json item;
    item["id"] = rule->name;
    const std::string entry = check::EntryOf(*rule);
    item["shortDescription"]["text"] = rule->summary;
    item["help"]["text"] = entry;
    item["help"]["markdown"] = entry;
    item["defaultConfiguration"]["level"] = check::NameOf(rule->severity);
    rules.push_back(item);
  }
  return rules;
}

Json SarifResult(const check::Finding& finding, const Charset& utf8) {
  const check::Rule& rule = *finding.rule;
  Json location;
  location["artifactLocation"]["uri"] = UriOf(finding.place.file);
  location["region"]["startLine"] = finding.place.line;
  location["region"]["startColumn"] = finding.place.column;
  Json result;
  result["ruleId"] = rule.name;
  result["ruleIndex"] = check::IndexOf(rule);
  result["level"] = check::NameOf(rule.severity);
  result["message"]["text"] = finding.text.In(utf8);
  result["locations"][0]["physicalLocation"] = location;
  if (finding.follows) {
    result["properties"]["follows"] = true;
  }
  if (finding.accepted) {
    const bool inSource = finding.accepted->kind == check::Acceptance::Kind::kInSource;
    Json& suppression = result["suppressions"][0];
    suppression["kind"] = inSource ? "inSource" : "external";
    if (!finding.accepted->why.empty()) {
      suppression["justification"] = Message(finding.accepted->why).In(utf8);
    }
  }
  return result;
}

bool IsTold(const check::Finding& finding, const Result& result) {
  return result.all || finding.accepted || !finding.follows;
}

}  // namespace

void WriteJson(std::ostream& stream, const Result& result, const std::string& rules) {
  const Charset utf8("UTF-8");
  Json report;
  report["findings"] = Json::array();
  for (const check::Finding& finding : result.findings) {
    if (!IsTold(finding, result)) {
      continue;
    }
    const check::Rule& rule = *finding.rule;
    Json item;
    item["file"] = finding.place.file;
    item["line"] = finding.place.line;
    item["column"] = finding.place.column;
    item["severity"] = check::NameOf(rule.severity);
    item["rule"] = rule.name;
    item["help"] = UriOf(rules) + '#' + rule.name;
    item["text"] = finding.text.In(utf8);
    if (finding.follows) {
      item["follows"] = true;
    }
    if (finding.accepted) {
      item["suppressed"] = true;
      item["reason"] = Message(finding.accepted->why).In(utf8);
    }
    report["findings"].push_back(item);
  }
  report["errors"] = check::Count(result.findings, check::Severity::kError);
  report["warnings"] = check::Count(result.findings, check::Severity::kWarning);
  report["files"] = result.fileCount;
  Write(stream, report);
}

void WriteSarif(std::ostream& stream, const Result& result) {
  const Charset utf8("UTF-8");
  Json run;
  Json& driver = run["tool"]["driver"];
  driver["name"] = "vehicle-units";
  driver["version"] = VEHICLE_UNITS_VERSION;
  driver["rules"] = SarifRules();
  run["columnKind"] = "unicodeCodePoints";
  run["results"] = Json::array();
  for (const check::Finding& finding : result.findings) {
    if (IsTold(finding, result)) {
      run["results"].push_back(SarifResult(finding, utf8));
    }
  }
  Json report;
  report["$schema"] = "https://json.schemastore.org/sarif-2.1.0.json";
  report["version"] = "2.1.0";
  report["runs"][0] = run;
  Write(stream, report);
}

}  // namespace report
