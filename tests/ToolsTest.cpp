#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "TempFolder.h"

namespace {

struct Outcome {
  int status;
  std::string output;
  std::string error;
};

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

class Program : public testing::Test {
 protected:
  // Runs the program through the shell, which reads `arguments`, in a UTF-8 locale.
  Outcome Run(const std::string& arguments, const std::string& input = "") const {
    const std::string command = "LC_ALL=C.UTF-8 " VEHICLE_UNITS_PROGRAM " " + arguments + " <" +
                                folder.Write("in", input) + " >" + folder.Path("out") + " 2>" +
                                folder.Path("err");
    const int status = std::system(command.c_str());
    EXPECT_TRUE(WIFEXITED(status)) << command;
    return {WEXITSTATUS(status), ReadFile(folder.Path("out")), ReadFile(folder.Path("err"))};
  }

  void ExpectOutput(const std::string& arguments, const std::string& output,
                    const std::string& input = "") const {
    const Outcome outcome = Run(arguments, input);
    EXPECT_EQ(outcome.status, 0) << arguments;
    EXPECT_EQ(outcome.output, output) << arguments;
    EXPECT_EQ(outcome.error, "") << arguments;
  }

  void ExpectFailure(const std::string& arguments, const std::string& error,
                     const std::string& input = "") const {
    const Outcome outcome = Run(arguments, input);
    EXPECT_EQ(outcome.status, 1) << arguments;
    EXPECT_EQ(outcome.error, "vehicle-units: " + error + '\n') << arguments;
  }

  // Writes a conversion file with the conversions of the unit A and returns the option for it.
  std::string DataOption(const std::string& conversions) const {
    folder.Write("UNIT_CONVERSIONS.xml", "<unit_conversions><fromunit id='A'>" + conversions +
                                             "</fromunit></unit_conversions>");
    return " --data " + folder.Path();
  }

  TempFolder folder;
};

TEST_F(Program, ConvertsItsArgumentsOrTheLinesOfItsInput) {
  ExpectOutput("convert TEMP_CEL °F 100 -40 +21.5 1e-1", "212 °F\n-40 °F\n70.7 °F\n32.18 °F\n");
  ExpectOutput("convert psi PRESSURE_KPA",
               "6.894757293168361 PRESSURE_KPA\n68.94757293168361 PRESSURE_KPA\n", "1\n 10 \r\n");
  ExpectOutput("convert --float psi PRESSURE_KPA 1", "6.8947573 PRESSURE_KPA\n");
  ExpectOutput("convert psi psi 1", "1 psi\n");
}

TEST_F(Program, WritesInTheTerminalsCharacterSet) {
  const Outcome utf8 = Run("convert TEMP_CEL °F 100");
  EXPECT_EQ(utf8.output,
            "212 \xC2\xB0"
            "F\n");
}

TEST_F(Program, SaysWhyItCannotConvert) {
  ExpectFailure("convert psig bar 1", "unknown unit \"psig\"; nearest: psi (g), psi, L/s");
  ExpectFailure("convert foo foo 1", "unknown unit \"foo\"; nearest: °F, AFR, L");
  ExpectFailure("convert TEMP_CEL psi 1",
                "\"TEMP_CEL\" does not convert into \"psi\"; it converts into: °C, °F");
  ExpectFailure("convert TEMP_CEL °F 1 x", "not a number: \"x\"");
  ExpectFailure("convert TEMP_CEL °F", "not a number: \"1,5\"", "1.5\n1,5\n2.5\n");
  ExpectFailure("convert TEMP_CEL °F 1e999", "not a number: \"1e999\"");
  ExpectFailure("convert --data /missing psi bar 1", "no such data folder: /missing");
  ExpectFailure("units --data " + folder.Path(),
                "cannot read " + folder.Path("UNIT_CONVERSIONS.xml"));
}

TEST_F(Program, SaysWhatIsWrongWithTheData) {
  ExpectFailure("convert A B 1" + DataOption("<tounit id='B'><conv to_float='2 * vol'/></tounit>"),
                "the expression \"2 * vol\" fails: no variable \"vol\"");
  ExpectFailure("convert A B 1" + DataOption("<tounit id='B'><conv type='slope-int'/></tounit>"),
                "the conversion of \"A\" into \"B\" lacks its scalar or its offset");
  ExpectFailure("convert A B 1" + DataOption("<tounit id='B'><conv type='custom'/></tounit>"),
                "the conversion of \"A\" into \"B\" has neither a scale nor an expression");
  ExpectFailure("convert A B 1" + DataOption(""),
                "\"A\" does not convert into \"B\" or anything else");
  folder.Write("UNIT_CONVERSIONS.xml", "no XML");
  ExpectFailure("units --data " + folder.Path(),
                folder.Path("UNIT_CONVERSIONS.xml") + " holds no conversions");
}

TEST_F(Program, ListsTheSourceUnitsAndTheirTargets) {
  ExpectOutput("units" + DataOption("<tounit id='C'><conv to_float='1'/></tounit>"
                                    "<tounit id='B'><conv to_float='1'/></tounit>"),
               "A  B, C\n");
  EXPECT_NE(Run("units").output.find("\nTEMP_CEL                 °C, °F\n"), std::string::npos);
}

TEST_F(Program, TellsBadUsageByStatus2) {
  EXPECT_EQ(Run("").status, 2);
  EXPECT_EQ(Run("convert psi").status, 2);
  EXPECT_EQ(Run("convert psi bar 1 --nonsense").status, 2);
  EXPECT_EQ(Run("--help").status, 0);
}

TEST_F(Program, TellsWhenItCannotWrite) {
  const std::string command = VEHICLE_UNITS_PROGRAM " convert psi psi 1 >/dev/full 2>/dev/null";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
}

}  // namespace
