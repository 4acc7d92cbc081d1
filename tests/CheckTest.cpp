#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "Program.h"
#include "RuleExample.h"
#include "check/Check.h"
#include "model/Model.h"

namespace {

using Json = nlohmann::json;

constexpr char kBadData[] = VEHICLE_UNITS_SOURCE "/tests/data/bad/";

std::string NothingInTheDataThatShips() {
  return "0 errors and 0 warnings in 8 files of " + RealPath(VEHICLE_UNITS_SOURCE "/data") + '\n';
}

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
  // Checks the folder with one of each mistake.
  std::string CheckAll(const std::string& arguments = "") const {
    return RunIn(kBadData, "check all " + arguments).output;
  }

  std::vector<std::string> AllRules() const {
    std::vector<std::string> names;
    const Json sarif = Json::parse(CheckAll("--format sarif"));
    for (const Json& rule : sarif["runs"][0]["tool"]["driver"]["rules"]) {
      names.push_back(rule["id"]);
    }
    std::sort(names.begin(), names.end());
    EXPECT_FALSE(names.empty());
    return names;
  }

  // Checks an example in a folder of its own: what is found, without the summary.
  std::string Found(const RuleExample& example, const std::string& options = "") const {
    const TempFolder place;
    example.Write(place);
    const std::string output =
        std::regex_replace(RunIn(place.Path(), "check " + options).output, std::regex("\\./"), "");
    return output.substr(0, output.rfind('\n', output.size() - 2) + 1);
  }

  const std::map<std::string, RuleExample> examples =
      RuleExample::AllOf(VEHICLE_UNITS_SOURCE "/docs/check-rules.md");
};

TEST_F(Check, FindsNothingInTheDataThatShips) {
  ExpectOutput("check --strict --data " VEHICLE_UNITS_SOURCE "/data", NothingInTheDataThatShips());
}

// The groups of units that convert into each other, each unit by its number.
std::vector<int> GroupsOf(const model::Conversions& conversions) {
  std::vector<int> groups(static_cast<std::size_t>(conversions.UnitCount()), -1);
  for (int first = 0; first < conversions.UnitCount(); ++first) {
    std::vector<int> reached{first};
    while (!reached.empty()) {
      int& group = groups[static_cast<std::size_t>(reached.back())];
      const std::vector<int>& next = conversions.NeighboursOf(reached.back());
      reached.pop_back();
      if (group < 0) {
        group = first;
        reached.insert(reached.end(), next.begin(), next.end());
      }
    }
  }
  return groups;
}

TEST(ShippedSamples, AreThreeOrMoreForEachQuantityAndOneOrMoreForEachUnit) {
  const model::Model model =
      model::ReadModel(VEHICLE_UNITS_SOURCE "/data/", std::nullopt, std::nullopt);
  const model::Conversions& conversions = model.definitions.conversions;
  const std::vector<int> groups = GroupsOf(conversions);
  std::map<int, int> samplesOfGroup;
  std::set<std::string> units;
  for (const model::Sample& sample : model.samples.value().all) {
    const int from = conversions.Find(sample.from.text).value();
    ++samplesOfGroup[groups[static_cast<std::size_t>(from)]];
    units.insert({sample.from.text, sample.to.text});
  }
  EXPECT_EQ(samplesOfGroup.size(), std::set<int>(groups.begin(), groups.end()).size());
  for (const auto& [group, count] : samplesOfGroup) {
    EXPECT_GE(count, 3) << conversions.NameOf(group);
  }
  for (int unit = 0; unit < conversions.UnitCount(); ++unit) {
    EXPECT_EQ(units.count(conversions.NameOf(unit)), 1U) << conversions.NameOf(unit);
  }
}

TEST_F(Check, JudgesTheFolderThatIsNamedElseTheCurrentOneIfItHoldsDataElseWhatIsInstalled) {
  examples.at("zero-scalar").Write(folder);
  const std::string summary =
      "\n1 error and 0 warnings in 1 file of " + RealPath(folder.Path()) + '\n';
  for (const std::string arguments : {"", ".", "--data .", "./"}) {
    const std::string output = RunIn(folder.Path(), "check " + arguments).output;
    EXPECT_NE(output.find(summary), std::string::npos) << arguments << '\n' << output;
  }
  EXPECT_EQ(RunIn("/", "check").output, NothingInTheDataThatShips());
}

TEST_F(Check, FindsTheMistakeOfEachRuleInItsExampleAndExplainsIt) {
  for (const std::string& rule : AllRules()) {
    const RuleExample& example = examples.at(rule);
    EXPECT_EQ(Found(example), example.Findings());
    const std::vector<std::string> broken = RulesOf(example.Findings());
    EXPECT_EQ(std::set<std::string>(broken.begin(), broken.end()), std::set<std::string>{rule});
    const std::string explained = Run("check --explain " + rule).output;
    EXPECT_EQ(explained.substr(explained.find('\n') + 2), example.Entry());
  }
  EXPECT_EQ(Run("check --explain zero-scaler").error,
            "vehicle-units: unknown rule \"zero-scaler\"; nearest: zero-scalar\n");
}

TEST_F(Check, FindsWhatEachOfTheCasesSays) {
  const auto cases = RuleExample::AllOf(VEHICLE_UNITS_SOURCE "/tests/data/check-cases.md");
  EXPECT_GT(cases.size(), 10U);
  for (const auto& [name, example] : cases) {
    EXPECT_EQ(Found(example, "--all"), example.Findings()) << name;
  }
}

TEST_F(Check, TellsTheSameInEveryFormat) {
  const std::vector<std::string> lines = LinesOf(CheckAll());
  const Json json = Json::parse(CheckAll("--format json"));
  const Json sarif = Json::parse(CheckAll("--format sarif"));
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
  const std::string link = json["findings"][0]["help"];
  const std::string rule = json["findings"][0]["rule"];
  ASSERT_EQ(link.substr(link.rfind('#') + 1), rule);
  const std::string linked = ReadFile(link.substr(7, link.rfind('#') - 7));
  const Json& help =
      sarif["runs"][0]["tool"]["driver"]["rules"][results[0]["ruleIndex"].get<std::size_t>()];
  EXPECT_NE(linked.find("\n### " + rule + '\n' + help["help"]["markdown"].get<std::string>()),
            std::string::npos);
}

TEST_F(Check, NamesFilesAsUrisInSarif) {
  folder.Write("a b/UNIT_CONVERSIONS.xml", "<conversions/>");
  const Json sarif =
      Json::parse(Run("check --format sarif --data '" + folder.Path("a b") + "'").output);
  EXPECT_EQ(
      sarif["runs"][0]["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
      "file://" + folder.Path("a%20b") + "/UNIT_CONVERSIONS.xml");
}

TEST_F(Check, TellsByItsStatusWhatItFound) {
  const auto statusOf = [this](const std::string& rule, const std::string& arguments) {
    const TempFolder place;
    examples.at(rule).Write(place);
    return RunIn(place.Path(), "check " + arguments).status;
  };
  EXPECT_EQ(statusOf("similar-units", ""), 0);
  EXPECT_EQ(statusOf("similar-units", "--strict"), 1);
  EXPECT_EQ(statusOf("zero-scalar", ""), 1);
  EXPECT_EQ(statusOf("zero-scalar", ">/dev/full 2>/dev/null #"), 2);
  EXPECT_EQ(statusOf("unread-file", "--name X --strict"), 0) << "of other names there may be";
  for (const auto& [arguments, error] : std::map<std::string, std::string>{
           {"missing", "no such data folder: missing"},
           {"all --name Y", "no association files all/Y*"},
           {".", "no data files in ./"},
       }) {
    const Outcome outcome = RunIn(kBadData, "check " + arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.error, "vehicle-units: " + error + '\n');
  }
}

// One definition of the data that ships, with its line.
struct Definition {
  std::size_t line;
  std::string from;
  std::string to;
  double scalar;
  double offset;
};

std::vector<Definition> ReadDefinitions(const std::vector<std::string>& lines) {
  const std::regex fromUnit("<fromunit id=\"([^\"]*)\"");
  const std::regex toUnit("<tounit id=\"([^\"]*)\".* scalar=\"([^\"]*)\" offset=\"([^\"]*)\"");
  std::vector<Definition> definitions;
  std::string from;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::smatch match;
    if (std::regex_search(lines[i], match, fromUnit)) {
      from = match[1];
    } else if (std::regex_search(lines[i], match, toUnit)) {
      definitions.push_back({i + 1, from, match[1], std::stod(match[2]), std::stod(match[3])});
    }
  }
  return definitions;
}

TEST_F(Check, BlamesTheConversionThatIsWrong) {
  const std::vector<std::string> lines =
      LinesOf(ReadFile(VEHICLE_UNITS_SOURCE "/data/UNIT_CONVERSIONS.xml"));
  const std::vector<Definition> definitions = ReadDefinitions(lines);
  std::vector<std::pair<Definition, Definition>> pairs;
  for (const Definition& there : definitions) {
    for (const Definition& back : definitions) {
      if (there.from == back.to && there.to == back.from && there.line < back.line) {
        pairs.emplace_back(there, back);
      }
    }
  }
  std::size_t faults = 0;
  std::size_t found = 0;
  std::size_t blamed = 0;
  std::size_t misplaced = 0;
  const auto tryWith = [&](const std::vector<Definition>& wrong) {
    std::vector<std::string> broken = lines;
    std::set<int> places;
    for (const Definition& each : wrong) {
      std::ostringstream numbers;
      numbers.precision(17);
      numbers << "scalar=\"" << each.scalar << "\" offset=\"" << each.offset << '"';
      broken[each.line - 1] = std::regex_replace(
          broken[each.line - 1], std::regex("scalar=.* offset=\"[^\"]*\""), numbers.str());
      places.insert(static_cast<int>(each.line));
    }
    std::string text;
    for (const std::string& line : broken) {
      text += line + '\n';
    }
    folder.Write("UNIT_CONVERSIONS.xml", text);
    check::Progress progress;
    bool isFound = false;
    for (const check::Finding& finding : check::Check(
             model::ReadModel(folder.Path() + '/', std::nullopt, std::nullopt), {}, progress)) {
      const bool right = places.count(finding.place.line) != 0;
      const bool sure = finding.text.Bytes().find("this is wrong, or") == std::string::npos;
      isFound = isFound || right;
      blamed += sure ? 1 : 0;
      misplaced += sure && !right ? 1 : 0;
    }
    ++faults;
    found += isFound ? 1 : 0;
  };
  const auto times = [](Definition definition, double factor) {
    definition.scalar *= factor;
    definition.offset *= factor;
    return definition;
  };
  for (std::size_t i = 0; i < pairs.size(); i += 3) {
    const auto& [there, back] = pairs[i];
    Definition inverse = back;
    inverse.scalar = 1 / (1.01 * there.scalar);
    inverse.offset = -there.offset / there.scalar;
    Definition thereAsBack = back;
    Definition backAsThere = there;
    thereAsBack.line = there.line;
    backAsThere.line = back.line;
    tryWith({times(there, 1.01)});
    tryWith({times(back, 1.01)});
    tryWith({times(there, 1.01), inverse});
    if (there.scalar != back.scalar) {
      tryWith({thereAsBack, backAsThere});
    }
  }
  EXPECT_GT(faults, 160U);
  EXPECT_EQ(found, faults);
  EXPECT_GT(blamed, faults * 3 / 4) << "else it hardly ever says which";
  EXPECT_LE(misplaced * 20, blamed);
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
