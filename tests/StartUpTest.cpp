// The start-up of the example host, which docs/host-guide.md shows: what it accepts and refuses.
#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <locale>
#include <stdexcept>
#include <string>
#include <tuple>

#include "StartUp.h"
#include "TempFolder.h"

namespace {

class StartUp : public testing::Test {
 protected:
  StartUp() {
    std::filesystem::copy(VEHICLE_UNITS_SOURCE "/data", folder.Path(),
                          std::filesystem::copy_options::recursive);
  }

  std::string Refusal() const try {
    units::DataUnitToDisplayUnitConverter display;
    Load(display, folder.Path());
    return "";
  } catch (const std::runtime_error& error) {
    return error.what();
  }

  TempFolder folder;
};

TEST_F(StartUp, RefusesDataThatIsMissingOrCutOff) {
  for (const auto& [file, cutBefore, refusal] :
       {std::tuple("UNIT_CONVERSIONS.xml", "", "a file is missing or empty"),
        {"UNIT_CONVERSIONS.xml", "<unit_conversions>", "TEMP_CEL does not come out right\n"},
        {"UNIT_CONVERSIONS.xml", " offset=\"32\"", "TEMP_CEL does not come out right\n"},
        {"UNIT_CONVERSIONS.xml", "<fromunit id=\"L/100km\"",
         "EFFICIENCY_MPG does not come out right\n"},
        {"VEHICLE_UNIT_ASSOCIATIONS_GREEK.xml", "", "a file is missing or empty"},
        {"VEHICLE_UNIT_ASSOCIATIONS_METRIC.xml", "<unitassoc id=\"TEMP_CEL\"",
         "TEMP_CEL does not come out right\n"},
        {"common/IMPERIAL.xml", "<unitassoc id=\"PRESSURE_KPA\"",
         "PRESSURE_KPA does not come out right\n"}}) {
    const std::string path = folder.Path(file);
    std::ifstream stream(path, std::ios::binary);
    const std::string whole(std::istreambuf_iterator<char>(stream), {});
    folder.Write(file, whole.substr(0, whole.find(cutBefore)));
    EXPECT_EQ(Refusal(), "cannot load the units of " + folder.Path() + ": " + refusal) << file;
    folder.Write(file, whole);
  }
}

TEST_F(StartUp, ReadsNumbersByTheClassicLocaleAndPutsTheHostsBack) {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale(), new Comma));
  const std::locale host;
  ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
  EXPECT_EQ(Refusal(), "");
  EXPECT_EQ(std::locale(), host);
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C.UTF-8");
  std::setlocale(LC_ALL, "C");
  std::locale::global(before);
}

}  // namespace
