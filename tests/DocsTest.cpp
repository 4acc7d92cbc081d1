// The documents: the examples of docs/data-files.md are loaded and its expressions evaluated, the
// snippets of docs/host-guide.md are sought in the sources that they are cut from.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "TempFolder.h"
#include "host/Parser.h"
#include "units/DataUnitToDisplayUnitConverter.h"

namespace {

using Row = std::vector<std::string>;

std::string ReadSource(const std::string& name) {
  return ReadFile(VEHICLE_UNITS_SOURCE "/" + name);
}

std::string Latin1(const std::string& utf8) {
  std::string latin1;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    latin1 += byte < 0x80 ? utf8[i]
                          : static_cast<char>((byte & 3U) << 6 |
                                              (static_cast<unsigned char>(utf8.at(++i)) & 0x3FU));
  }
  return latin1;
}

// The part of the text from its heading to the next one of the same or a higher level.
std::string Section(const std::string& text, const std::string& heading) {
  const auto begin = text.find('\n' + heading + '\n');
  EXPECT_NE(begin, std::string::npos) << heading;
  const auto level = heading.substr(0, heading.find(' ') + 1);
  return text.substr(begin, text.find('\n' + level, begin + 1) - begin);
}

std::vector<std::string> Examples() {
  const std::string section = Section(ReadSource("docs/data-files.md"), "## Worked examples");
  std::vector<std::string> examples;
  for (auto at = section.find("\n### "); at != std::string::npos;) {
    const auto next = section.find("\n### ", at + 1);
    examples.push_back(section.substr(at, next - at));
    at = next;
  }
  return examples;
}

std::string Cell(std::string text) {
  text = std::regex_replace(text, std::regex(R"(^[ `]+|[ `]+$)"), "");
  return std::regex_replace(text, std::regex(R"(\\\|)"), "|");
}

// The rows of all tables whose first column is headed `heading`.
std::vector<Row> Rows(const std::string& text, const std::string& heading) {
  static const std::regex column(R"(((?:[^|\\]|\\.)*)\|)");
  std::vector<Row> rows;
  std::istringstream lines(text);
  bool inside = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] != '|') {
      inside = false;
      continue;
    }
    Row row;
    for (std::sregex_iterator i(line.begin() + 1, line.end(), column), end; i != end; ++i) {
      row.push_back(Cell((*i)[1]));
    }
    if (inside && row[0].rfind("---", 0) != 0) {
      rows.push_back(row);
    }
    inside = inside || row[0] == heading;
  }
  return rows;
}

double Number(const std::string& text) { return std::stod(text); }

units::unitTypes_e System(const std::string& name) {
  return name == "STD"      ? units::UNIT_TYPE_STD
         : name == "STD_UK" ? units::UNIT_TYPE_STD_UK
         : name == "METRIC" ? units::UNIT_TYPE_METRIC
                            : units::UNIT_TYPE_GREEK;
}

void WriteFiles(const TempFolder& folder, const std::string& example) {
  static const std::regex file("```xml (\\S+)\n([^`]*)```");
  int files = 0;
  for (std::sregex_iterator i(example.begin(), example.end(), file), end; i != end; ++i) {
    folder.Write((*i)[1], Latin1((*i)[2]));
    ++files;
  }
  EXPECT_GT(files, 0) << example;
}

void ExpectConversions(const std::string& folder, const std::string& example) {
  units::UnitConverter converter;
  converter.SetXMLFilePathAndLoad(folder);
  for (const Row& row : Rows(example, "from")) {
    double value = Number(row.at(1));
    converter.ConvertUnit(Latin1(row.at(0)), Latin1(row.at(2)), value);
    EXPECT_EQ(value, Number(row.at(3))) << row[0] << " to " << row[2];
  }
}

void ExpectDisplays(const std::string& folder, const std::vector<Row>& rows) {
  units::DataUnitToDisplayUnitConverter display;
  display.SetXMLFilePath(folder);
  std::string error;
  ASSERT_TRUE(display.ReadAndParseXMLAssociations("CAR", error)) << error;
  for (const Row& row : rows) {
    display.SetUnitType(System(row.at(0)));
    double value = Number(row.at(2));
    display.ConvertUnit(row.at(1), value);
    EXPECT_EQ(value, Number(row.at(3))) << row[0] << ' ' << row[1];
    EXPECT_EQ(display.GetActiveLabelForUnit(row.at(1)), Latin1(row.at(4))) << row[0];
  }
}

TEST(DataFiles, EachExampleIsReadAsThePageSays) {
  const std::vector<std::string> examples = Examples();
  EXPECT_EQ(examples.size(), 3U);
  for (const std::string& example : examples) {
    const TempFolder folder;
    WriteFiles(folder, example);
    ExpectConversions(folder.Path(), example);
    const std::vector<Row> displays = Rows(example, "system");
    if (!displays.empty()) {
      ExpectDisplays(folder.Path(), displays);
    }
    EXPECT_FALSE(displays.empty() && Rows(example, "from").empty()) << example;
  }
}

std::vector<Row> Expressions() {
  return Rows(Section(ReadSource("docs/data-files.md"), "## Expressions"), "expression");
}

TEST(DataFiles, EachExpressionHasTheResultThatThePageSays) {
  EXPECT_GT(Expressions().size(), 50U);
  for (const Row& row : Expressions()) {
    Parser parser;
    parser.variables["val"] = Number(row.at(1));
    if (row.at(2) == "error") {
      EXPECT_THROW(parser.Evaluate(row[0]), std::runtime_error) << row[0];
    } else if (std::isinf(Number(row[2]))) {
      EXPECT_EQ(parser.Evaluate(row[0]), Number(row[2])) << row[0];
    } else {
      // The C library's functions may differ in the last place from one machine to the next.
      EXPECT_NEAR(parser.Evaluate(row[0]), Number(row[2]), 1e-15 * std::fabs(Number(row[2])))
          << row[0];
    }
  }
}

std::string WithoutIndentation(const std::string& text) {
  return std::regex_replace(text, std::regex("(^|\n)[ \t]+"), "$1");
}

TEST(HostGuide, EachSnippetStandsInASourceThatIsBuilt) {
  std::string sources;
  for (const char* folder : {"examples", "tests/consumers"}) {
    const std::filesystem::path root(VEHICLE_UNITS_SOURCE);
    for (const auto& file : std::filesystem::recursive_directory_iterator(root / folder)) {
      if (file.is_regular_file()) {
        sources += WithoutIndentation(ReadSource(file.path().lexically_relative(root)));
      }
    }
  }
  static const std::regex block("```(cpp|cmake|make)\n([^`]*)```");
  const std::string guide = ReadSource("docs/host-guide.md");
  int snippets = 0;
  for (std::sregex_iterator i(guide.begin(), guide.end(), block), end; i != end; ++i, ++snippets) {
    EXPECT_NE(sources.find(WithoutIndentation((*i)[2])), std::string::npos) << (*i)[2];
  }
  EXPECT_GT(snippets, 5);
}

}  // namespace
