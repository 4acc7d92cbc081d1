#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "Program.h"

namespace {

using Json = nlohmann::json;

constexpr char kBadData[] = VEHICLE_UNITS_SOURCE "/tests/data/bad/";

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

// The rules that the lines of findings end with, without the summary.
std::vector<std::string> RulesOf(const std::string& output) {
  std::vector<std::string> rules;
  for (const std::string& line : LinesOf(output)) {
    if (line.back() == ']') {
      const std::size_t start = line.rfind('[') + 1;
      rules.push_back(line.substr(start, line.size() - 1 - start));
    }
  }
  return rules;
}

class Check : public Program {
 protected:
  // Checks a folder of the bad data, named as it stands there.
  Outcome CheckBad(const std::string& arguments) const {
    return Run("check --data " + arguments, "",
               std::string("cd ") + kBadData + " && LC_ALL=C.UTF-8");
  }

  std::vector<std::string> AllRules() const {
    std::vector<std::string> names;
    const Json sarif = Json::parse(CheckBad("all --format sarif").output);
    for (const Json& rule : sarif["runs"][0]["tool"]["driver"]["rules"]) {
      names.push_back(rule["id"]);
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  // The rules that are broken by a conversion file with the conversions of the units A and B.
  std::vector<std::string> BrokenBy(const std::string& aToB, const std::string& bToA) const {
    folder.Write("UNIT_CONVERSIONS.xml",
                 "<unit_conversions><fromunit id='A'><tounit id='B'>" + aToB +
                     "</tounit></fromunit><fromunit id='B'><tounit id='A'>" + bToA +
                     "</tounit></fromunit></unit_conversions>");
    return RulesOf(Run("check --data " + folder.Path()).output);
  }
};

TEST_F(Check, FindsNothingInTheDataThatShips) {
  ExpectOutput("check --strict --data " VEHICLE_UNITS_SOURCE "/data",
               "0 errors and 0 warnings in 7 files\n");
}

TEST_F(Check, HasForEachRuleItsEntryItsBadDataAndItsFinding) {
  const std::vector<std::string> rules = AllRules();
  ASSERT_FALSE(rules.empty());
  const std::string entries = ReadFile(VEHICLE_UNITS_SOURCE "/docs/check-rules.md");
  std::vector<std::string> folders;
  for (const auto& entry : std::filesystem::directory_iterator(kBadData)) {
    if (entry.is_directory() && entry.path().filename() != "all") {
      folders.push_back(entry.path().filename());
    }
  }
  std::sort(folders.begin(), folders.end());
  EXPECT_EQ(folders, rules);
  for (const std::string& rule : rules) {
    EXPECT_NE(entries.find("\n### " + rule + "\n"), std::string::npos) << rule;
    const Outcome outcome = CheckBad(rule + " --strict");
    EXPECT_EQ(outcome.status, 1) << rule;
    EXPECT_EQ(outcome.output, ReadFile(kBadData + rule + ".txt"));
    const std::vector<std::string> broken = RulesOf(outcome.output);
    EXPECT_EQ(std::set<std::string>(broken.begin(), broken.end()), std::set<std::string>{rule});
  }
}

TEST_F(Check, FindsOneOfEachMistakeWhereThereIsOneOfEach) {
  const Outcome outcome = CheckBad("all");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output, ReadFile(std::string(kBadData) + "all.txt"));
  std::vector<std::string> broken = RulesOf(outcome.output);
  std::sort(broken.begin(), broken.end());
  EXPECT_EQ(broken, AllRules());
}

TEST_F(Check, TellsTheSameInEveryFormat) {
  const std::vector<std::string> lines = LinesOf(CheckBad("all").output);
  const Json json = Json::parse(CheckBad("all --format json").output);
  const Json sarif = Json::parse(CheckBad("all --format sarif").output);
  EXPECT_EQ(sarif["version"], "2.1.0");
  const Json& results = sarif["runs"][0]["results"];
  ASSERT_EQ(json["findings"].size() + 1, lines.size());
  ASSERT_EQ(results.size() + 1, lines.size());
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const Json& finding = json["findings"][i];
    std::ostringstream line;
    line << finding["file"].get<std::string>() << ':' << finding["line"] << ':' << finding["column"]
         << ": " << finding["severity"].get<std::string>() << ": "
         << finding["text"].get<std::string>() << " [" << finding["rule"].get<std::string>() << ']';
    EXPECT_EQ(line.str(), lines[i]);
    const Json& place = results[i]["locations"][0]["physicalLocation"];
    EXPECT_EQ(results[i]["ruleId"], finding["rule"]);
    EXPECT_EQ(results[i]["level"], finding["severity"]);
    EXPECT_EQ(results[i]["message"]["text"], finding["text"]);
    EXPECT_EQ(place["artifactLocation"]["uri"], finding["file"]);
    EXPECT_EQ(place["region"]["startLine"], finding["line"]);
    EXPECT_EQ(place["region"]["startColumn"], finding["column"]);
  }
}

TEST_F(Check, TellsByItsStatusWhatItFound) {
  EXPECT_EQ(CheckBad("similar-units").status, 0);
  EXPECT_EQ(CheckBad("similar-units --strict").status, 1);
  EXPECT_EQ(CheckBad("zero-scalar").status, 1);
  EXPECT_EQ(CheckBad("unread-file --name X --strict").status, 0) << "of other names there may be";
  const Outcome missing = CheckBad("missing");
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.error, "vehicle-units: no such data folder: missing\n");
  EXPECT_EQ(CheckBad("zero-scalar --name X").error,
            "vehicle-units: no association files zero-scalar/X*\n");
  EXPECT_EQ(CheckBad(".").error, "vehicle-units: no data files in ./\n");
  EXPECT_EQ(CheckBad("zero-scalar --format xml").status, 2);
  EXPECT_EQ(CheckBad("zero-scalar >/dev/full 2>/dev/null #").status, 2);
}

TEST_F(Check, KnowsAnInverseFromWhatIsNone) {
  const auto slope = [](const std::string& scalar, const std::string& offset) {
    return "<conv type='slope-int' scalar='" + scalar + "' offset='" + offset + "'/>";
  };
  const auto expression = [](const std::string& text) { return "<conv to_float='" + text + "'/>"; };
  const std::string celsius = slope("0.55555555555555556", "-17.777777777777778");
  const std::vector<std::string> none;
  const std::vector<std::string> inverse{"not-inverse"};
  const std::vector<std::string> finite{"expression-not-finite"};
  EXPECT_EQ(BrokenBy(slope("1.8", "32"), celsius), none);
  EXPECT_EQ(BrokenBy(slope("1.80001", "32"), celsius), inverse);
  EXPECT_EQ(BrokenBy(slope("1.8", "32.0001"), celsius), inverse);
  EXPECT_EQ(BrokenBy(slope("1.8", "0"), slope("0.5555555556", "0")), none);
  EXPECT_EQ(BrokenBy(expression("100 / val"), expression("100 / val")), none);
  EXPECT_EQ(BrokenBy(expression("abs(val)"), expression("val")), inverse);
  EXPECT_EQ(BrokenBy(expression("val"), expression("abs(val)")), inverse);
  EXPECT_EQ(BrokenBy(expression("val &gt; 1e5 ? 1e5 : val"), expression("val")), inverse);
  EXPECT_EQ(
      BrokenBy(expression("val ^ 3"), expression("val &lt; 0 ? -(-val) ^ (1 / 3) : val ^ (1 / 3)")),
      none);
  EXPECT_EQ(BrokenBy(expression("sqrt(val)"), expression("val ^ 2")),
            (std::vector<std::string>{"expression-not-finite", "not-inverse"}));
  EXPECT_EQ(BrokenBy(expression("val &gt; 1e6 ? 1 / 0 : 1.1 * val"), expression("val")),
            (std::vector<std::string>{"expression-not-finite", "not-inverse"}));
  EXPECT_EQ(BrokenBy(expression("ln(val)"), expression("val")),
            (std::vector<std::string>{"expression-not-finite", "not-inverse"}));
}

TEST_F(Check, BlamesTheConversionThatSpoilsMostLoops) {
  const auto line = [](const std::string& to, double scalar) {
    std::ostringstream text;
    text.precision(17);
    text << "<tounit id='" << to << "'><conv type='slope-int' scalar='" << scalar
         << "' offset='0'/></tounit>";
    return text.str();
  };
  const std::vector<double> sizes{1, 2, 4, 8, 16, 32};
  std::string file = "<unit_conversions>\n";
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    file += "<fromunit id='U" + std::to_string(i) + "'>";
    for (std::size_t j = 0; j < sizes.size(); ++j) {
      const bool wrong = i + j == 3 && (i == 1 || j == 1);
      const double factor = wrong && i == 1 ? 1.001 : wrong ? 1 / 1.001 : 1;
      file += i == j ? "" : line("U" + std::to_string(j), sizes[i] / sizes[j] * factor);
    }
    file += "</fromunit>\n";
  }
  folder.Write("UNIT_CONVERSIONS.xml", file + "</unit_conversions>\n");
  const std::vector<std::string> lines = LinesOf(Run("check --data " + folder.Path()).output);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_NE(lines[0].find(R"("U1" into "U2" does not fit)"), std::string::npos) << lines[0];
}

TEST_F(Check, SurvivesIncludesThatMultiply) {
  const std::string start = "<unit_associations>";
  const std::string end = "</unit_associations>";
  const auto include = [](int i) { return "<include>F" + std::to_string(i) + ".xml</include>"; };
  for (int i = 0; i < 40; ++i) {
    std::string text = start;
    text.append(include(i + 1)).append(include(i + 1)).append(end);
    folder.Write("F" + std::to_string(i) + ".xml", text);
  }
  folder.Write("F40.xml", start + end);
  for (const char* file : {"X_UNIT_ASSOCIATIONS_STD.xml", "X_UNIT_ASSOCIATIONS_STD_UK.xml",
                           "X_UNIT_ASSOCIATIONS_METRIC.xml", "X_UNIT_ASSOCIATIONS_GREEK.xml"}) {
    folder.Write(file, std::string(start).append(include(0)).append(end));
  }
  folder.Write("UNIT_CONVERSIONS.xml", "<unit_conversions/>");
  const std::vector<std::string> broken = RulesOf(Run("check --data " + folder.Path()).output);
  EXPECT_EQ(broken, std::vector<std::string>(4, "not-loaded"));
}

TEST_F(Check, DrawsTheConversionsWithWhatIsFound) {
  const std::string graph = Run("graph --data " + std::string(kBadData) + "all").output;
  EXPECT_EQ(graph.rfind("digraph conversions {\n", 0), 0U);
  const auto edge = [&graph](const std::string& label) {
    for (const std::string& line : LinesOf(graph)) {
      if (line.find("[label=\"" + label + "\"") != std::string::npos) {
        return line;
      }
    }
    return std::string();
  };
  EXPECT_NE(edge("0.5 * val").find(" dir=both]"), std::string::npos);
  EXPECT_NE(edge("0.145038 * val").find(" dir=both color=red]"), std::string::npos);
  EXPECT_NE(edge("1.60934 * val").find(" color=orange3]"), std::string::npos);
  EXPECT_NE(edge("pound").find(" color=red tooltip="), std::string::npos);
}

}  // namespace
