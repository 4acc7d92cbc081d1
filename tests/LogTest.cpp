#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "TempFolder.h"
#include "log/ConvertLog.h"
#include "log/Rows.h"
#include "text/Numbers.h"

namespace {

// A log and what is to become of it.
struct Table {
  std::string log;
  std::string converted;
};

class RandomTable {
 public:
  RandomTable(const units::DataUnitToDisplayUnitConverter& display, char separator,
              const std::string& lineEnd, unsigned seed)
      : display(display), separator(1, separator), lineEnd(lineEnd), random(seed) {}

  Table Make(int rows) {
    AddRow({"Note", "A [TEMP_CEL]", "\"B, or (EFFICIENCY_KML)\"", "TEMP_FAH", "\"a [b]\""},
           {"Note", "A [\u00B0F]", "\"B, or (mpg (US))\"", "\u00B0F", "\"a [b]\""});
    for (int row = 0; row < rows; ++row) {
      const Cell cells[] = {Text(), Number("TEMP_CEL"), Number("EFFICIENCY_KML"),
                            Number("TEMP_FAH"), Text()};
      std::vector<std::string> log;
      std::vector<std::string> converted;
      const std::size_t count = Below(20) == 0 ? 1 + Below(4) : 5;
      for (std::size_t i = 0; i < count; ++i) {
        log.push_back(cells[i].log);
        converted.push_back(cells[i].converted);
      }
      AddRow(log, converted);
    }
    return table;
  }

 private:
  struct Cell {
    std::string log;
    std::string converted;
  };

  std::size_t Below(std::size_t bound) { return random() % bound; }

  Cell Text() {
    const std::string texts[] = {"",
                                 "plain",
                                 "12",
                                 "5\" pipe",
                                 "\"\"",
                                 "\"a\"\"" + separator + "\"",
                                 "\"line\n\nline" + lineEnd + "\"\"\"",
                                 "\"" + separator + "\"#",
                                 "\xB0",
                                 " \" "};
    const std::string text = texts[Below(std::size(texts))];
    return {text, text};
  }

  Cell Number(const std::string& unit) {
    const std::string others[] = {"", "N/A", "\"NaN\"", "12x", "-", "inf", "\"1\n2\"", "1.2.3"};
    if (Below(5) == 0) {
      const std::string other = others[Below(std::size(others))];
      return {other, other};
    }
    std::uniform_real_distribution<double> values(-100, 100);
    const double value = Below(2) == 0 ? values(random) : double(Below(100)) - 50;
    double shown = value;
    display.ConvertUnit(unit, shown);
    const std::string text =
        FormatNumber(value) + (Below(3) == 0 && value == int(value) ? ".0" : "");
    const std::string frames[][2] = {{"", ""}, {" ", " "}, {"\"", "\""}, {"\" ", "\""}};
    const auto& [before, after] = frames[Below(std::size(frames))];
    return {before + text + after, before + (shown == value ? text : FormatNumber(shown)) + after};
  }

  void AddRow(const std::vector<std::string>& log, const std::vector<std::string>& converted) {
    for (std::size_t i = 0; i < log.size(); ++i) {
      const std::string behind = i + 1 == log.size() ? lineEnd : separator;
      table.log += log[i] + behind;
      table.converted += converted[i] + behind;
    }
  }

  const units::DataUnitToDisplayUnitConverter& display;
  const std::string separator;
  const std::string lineEnd;
  std::mt19937 random;
  Table table;
};

class Log : public testing::Test {
 protected:
  void SetUp() override {
    std::string error;
    display.SetXMLFilePath(VEHICLE_UNITS_SOURCE "/data/");
    ASSERT_TRUE(display.ReadAndParseXMLAssociations("VEHICLE", error)) << error;
  }

  logs::LogOptions Options(char separator) const {
    logs::LogOptions options;
    options.dialect = {separator, '.', true, 0};
    return options;
  }

  logs::Opening Open(logs::Input& input, const logs::LogOptions& options) const {
    const logs::Units units(display);
    std::set<std::string> matched;
    return ReadOpening(input, options, {units, {}, {}}, matched);
  }

  std::string Convert(const std::string& log, logs::LogOptions options, std::size_t jobs) const {
    options.jobs = jobs;
    std::atomic<std::uint64_t> bytesRead{0};
    logs::Input input(folder.Write("log", log), bytesRead);
    const logs::Opening opening = Open(input, options);
    logs::OutputFile output(folder.Path("converted"));
    ConvertRows(input, opening, options, output);
    output.Finish();
    EXPECT_EQ(bytesRead, log.size());
    return ReadFile(folder.Path("converted"));
  }

  TempFolder folder;
  units::DataUnitToDisplayUnitConverter display;
};

TEST_F(Log, KeepsEveryByteButTheConvertedNumbersWhichAreTheLibrarysBits) {
  unsigned seed = 0;
  for (const char separator : {',', ';', '\t'}) {
    for (const std::string lineEnd : {"\n", "\r\n"}) {
      const Table table = RandomTable(display, separator, lineEnd, ++seed).Make(30'000);
      ASSERT_GT(table.log.size(), std::size_t{8} * 128 * 1024);  // several blocks a job
      for (const std::size_t jobs : {1U, 2U, 4U}) {
        EXPECT_TRUE(Convert(table.log, Options(separator), jobs) == table.converted)
            << separator << " seed " << seed << ", " << jobs << " jobs";
      }
    }
  }
}

TEST_F(Log, ConvertsTheSameWhereverItsBlocksEnd) {
  const Table table = RandomTable(display, ',', "\r\n", 7).Make(200);
  std::atomic<std::uint64_t> bytesRead{0};
  logs::Input input(folder.Write("log", table.log), bytesRead);
  const logs::Opening opening = Open(input, Options(','));
  std::string rows;
  ASSERT_TRUE(input.NextRows(opening.dialect, rows));
  logs::BlockConverter converter(opening.dialect, opening.plan, logs::OnError::kKeep);
  for (std::size_t cut = 0; cut <= rows.size(); ++cut) {
    const std::size_t whole =
        logs::WholeRows(std::string_view(rows).substr(0, cut), opening.dialect);
    converter.Convert(std::string_view(rows).substr(0, whole));
    std::string converted = opening.plan.heading;
    converted += converter.Converted();
    converter.Convert(std::string_view(rows).substr(whole));
    converted += converter.Converted();
    ASSERT_EQ(converted, table.converted) << cut;
  }
}

}  // namespace
