#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "Program.h"

namespace {

TEST_F(Program, ConvertsItsArgumentsOrTheLinesOfItsInput) {
  ExpectOutput("convert TEMP_CEL °F 100 -40 +21.5 1e-1", "212 °F\n-40 °F\n70.7 °F\n32.18 °F\n");
  ExpectOutput("convert psi PRESSURE_KPA",
               "6.894757293168361 PRESSURE_KPA\n68.94757293168361 PRESSURE_KPA\n", "1\n 10 \r\n");
  ExpectOutput("convert --float psi PRESSURE_KPA 1", "6.8947573 PRESSURE_KPA\n");
  ExpectOutput("convert psi psi 1", "1 psi\n");
}

TEST_F(Program, SpeaksTheTerminalsCharacterSet) {
  const std::string locale = folder.Path("en_US.ISO-8859-1");
  ASSERT_EQ(std::system(("localedef -i en_US -f ISO-8859-1 " + locale).c_str()), 0);
  const std::string latin1 = "LOCPATH=" + folder.Path() + " LC_ALL=en_US.ISO-8859-1";
  EXPECT_EQ(Run("convert TEMP_CEL \xB0"
                "F 100",
                "", latin1)
                .output,
            "212 \xB0"
            "F\n");
  EXPECT_EQ(Run("show --system metric m/s\xB2=1", "", latin1).output,
            "data unit  value     metric\nm/s\xB2           1  1  m/s\xB2\n");
  for (const char* utf8 : {"LC_ALL=C.UTF-8", "LC_ALL=C"}) {
    EXPECT_EQ(Run("convert TEMP_CEL \xC2\xB0"
                  "F 100",
                  "", utf8)
                  .output,
              "212 \xC2\xB0"
              "F\n");
  }
}

TEST_F(Program, PutsAQuestionMarkForWhatIsNoCharacter) {
  EXPECT_EQ(Run("convert TEMP\xFF\xFE psi 1").error,
            "vehicle-units: unknown unit \"TEMP??\"; nearest: MPa, Nm, TEMP_CEL\n");
}

TEST_F(Program, FailsForATerminalOfAnUnknownCharacterSet) {
  const std::string charmap = folder.Path("charmap");
  const std::string locale = folder.Path("strange");
  ASSERT_EQ(
      std::system(("zcat /usr/share/i18n/charmaps/ISO-8859-1.gz | sed s/ISO-8859-1/STRANGE/ >" +
                   charmap + " && localedef -i en_US -f " + charmap + ' ' + locale)
                      .c_str()),
      0);
  const Outcome outcome = Run("units", "", "LOCPATH=" + folder.Path() + " LC_ALL=strange");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.error, "vehicle-units: cannot convert text from ISO-8859-1 to STRANGE\n");
}

TEST_F(Program, SaysWhyItCannotConvert) {
  ExpectFailure("convert psig bar 1", "unknown unit \"psig\"; nearest: psi (g), psi, L/s");
  ExpectFailure("convert foo foo 1", "unknown unit \"foo\"; nearest: °F, AFR, L");
  ExpectFailure("convert TEMP_CEL psi 1",
                "\"TEMP_CEL\" does not convert into \"psi\"; it converts into: °C, °F");
  ExpectFailure("convert '{psi}' psi 1", "unknown unit \"{psi}\"; nearest: psi, psi (g), L/s");
  for (const std::string text : {"x", "", " ", "+", "+-1", "inf", "nan", "1x", "1e999"}) {
    ExpectFailure("convert TEMP_CEL °F 1 '" + text + "'", "not a number: \"" + text + '"');
  }
  ExpectFailure("convert TEMP_CEL °F", "not a number: \"1,5\"", "1.5\n1,5\n2.5\n");
  ExpectFailure("convert --data /missing psi bar 1", "no such data folder: /missing");
  ExpectFailure("units --data " + folder.Path(),
                "cannot read " + folder.Path("UNIT_CONVERSIONS.xml"));
}

TEST_F(Program, SaysWhatIsWrongWithTheData) {
  ExpectFailure("convert A B 1" + DataOption("<tounit id='B'><conv to_float='2 * vol'/></tounit>"),
                "the expression \"2 * vol\" fails: no variable \"vol\"");
  for (const std::string constant : {"", "scalar='1'", "offset='1'"}) {
    ExpectFailure("convert A B 1" + DataOption("<tounit id='B'><conv type='slope-int' " + constant +
                                               "/></tounit>"),
                  "the conversion of \"A\" into \"B\" lacks its scalar or its offset");
  }
  ExpectFailure("convert A B 1" + DataOption("<tounit id='B'><conv type='custom'/></tounit>"),
                "the conversion of \"A\" into \"B\" has neither a scale nor an expression");
  ExpectFailure("convert A B 1" + DataOption(""),
                "\"A\" does not convert into \"B\" or anything else");
  folder.Write("UNIT_CONVERSIONS.xml", "no XML");
  ExpectFailure("units --data " + folder.Path(),
                folder.Path("UNIT_CONVERSIONS.xml") + " holds no conversions");
  std::string deep;
  for (int level = 0; level < 100000; ++level) {
    deep += "<a>";
  }
  folder.Write("UNIT_CONVERSIONS.xml", deep);
  EXPECT_EQ(Run("units --data " + folder.Path()).error,
            folder.Path("UNIT_CONVERSIONS.xml") + ":1:193: more than 64 levels of elements\n" +
                "vehicle-units: cannot load " + folder.Path("UNIT_CONVERSIONS.xml") + '\n');
}

TEST_F(Program, ListsTheSourceUnitsAndTheirTargets) {
  ExpectOutput("units" + DataOption("<tounit id='C'><conv to_float='1'/></tounit>"
                                    "<tounit id='B'><conv to_float='1'/></tounit>"),
               "A  B, C\n");
  EXPECT_NE(Run("units").output.find("\nTEMP_CEL                 °C, °F\n"), std::string::npos);
}

TEST_F(Program, ShowsReadingsInOneSystemOrInAll) {
  ExpectOutput("show TEMP_CEL=-40 EFFICIENCY_MPG=31",
               "data unit       value       std                std_uk             metric"
               "            greek\n"
               "TEMP_CEL          -40  -40  °F            -40  °C            -40  °C"
               "           -40  °C\n"
               "EFFICIENCY_MPG     31   31  mpg (US)  37.2294  mpg (UK)  7.58757  L/100km"
               "  13.1795  km/L\n");
  ExpectOutput("show --system metric",
               "data unit  value           metric\n"
               "SPEED_MPH     55  88.5139  km/h\n"
               "RPM         3500     3500  RPM\n",
               "SPEED_MPH=55\nRPM= 3500\r\n");
}

TEST_F(Program, SaysWhatIsWrongWithAReading) {
  ExpectFailure("show TEMP_CE=4",
                "unknown data unit \"TEMP_CE\"; nearest: TEMP_CEL, TEMP_FAH, g-force");
  ExpectFailure("show TEMP_CEL", "not DATAUNIT=VALUE: \"TEMP_CEL\"");
  ExpectFailure("show TEMP_CEL=4,5", "not a number: \"4,5\"");
}

TEST_F(Program, NamesTheAssociationFileThatFails) {
  const std::string show = "show --name CAR A=1" + DataOption("");
  const auto write = [this](const std::string& name, const std::string& children) {
    return folder.Write(name, "<unit_associations>" + children + "</unit_associations>");
  };
  ExpectFailure(show, "cannot read " + folder.Path("CAR_UNIT_ASSOCIATIONS_STD.xml"));
  write("CAR_UNIT_ASSOCIATIONS_STD.xml", "<unitassoc tounit='B'/><unitassoc id='A' tounit='B'/>");
  write("CAR_UNIT_ASSOCIATIONS_STD_UK.xml",
        "<include>good.xml</include><include>bad.xml</include>");
  write("good.xml", "");
  write("bad.xml", "<include>good.xml</include><include>missing.xml</include>");
  const std::string nameless =
      folder.Path("CAR_UNIT_ASSOCIATIONS_STD.xml") + ":1:20: <unitassoc> lacks the tag \"id\"\n";
  EXPECT_EQ(Run(show).error,
            nameless + "vehicle-units: cannot read " + folder.Path("missing.xml") + '\n');
  write("bad.xml", "<include>missing.xml</include><include>missing.xml</include>");
  EXPECT_EQ(Run(show).error,
            nameless + "vehicle-units: cannot read " + folder.Path("missing.xml") + '\n');
  folder.Write("good.xml", "<other/>");
  write("bad.xml", "<include/>");
  EXPECT_EQ(Run(show).error, nameless + folder.Path("bad.xml") +
                                 ":1:20: <include> names no file\n" +
                                 "vehicle-units: cannot load " +
                                 folder.Path("CAR_UNIT_ASSOCIATIONS_STD_UK.xml") + '\n');
}

TEST_F(Program, SurvivesFilesBehindTheOneThatTheLibraryRefuses) {
  std::string deep;
  for (int i = 0; i < 100'000; ++i) {
    deep += "<a>";
  }
  folder.Write("refused.xml", deep);
  folder.Write("deep.xml", deep);
  folder.Write("nameless.xml", "<unit_associations><include/></unit_associations>");
  folder.Write("CAR_UNIT_ASSOCIATIONS_STD.xml",
               "<unit_associations><include>refused.xml</include><include>deep.xml</include>"
               "<include>nameless.xml</include></unit_associations>");
  EXPECT_EQ(Run("show --name CAR A=1" + DataOption("")).error,
            folder.Path("refused.xml") + ":1:193: more than 64 levels of elements\n" +
                "vehicle-units: cannot load " + folder.Path("CAR_UNIT_ASSOCIATIONS_STD.xml") +
                '\n');
}

TEST_F(Program, ShowsTheMonitorsOfAFile) {
  const std::string file = folder.Write("monitors.tsv",
                                        "Coolant\tTEMP_CEL\t70\t110\t1\t92\r\n"
                                        "Boost\tPRESSURE_KPA\t150\t-15\t2\t162.5\n"
                                        "Fuel use\tEFFICIENCY_MPG\t10\t50\t1\t-5\n"
                                        "Load\tother\t0\t1\n"
                                        "\n"
                                        "Speed\tSPEED_MPH\t \t100\n"
                                        "RPM\tRPM\t500\t6500\t0\tidle");
  const Outcome outcome = Run("monitors --system metric " + file);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output,
            "metric     value   lower   upper  unit\n"
            "Coolant     92.0    70.0   110.0  °C\n"
            "Boost     162.50  -15.00  150.00  kPa      OUTSIDE, limits inverted\n"
            "Fuel use   -47.0     4.7    23.5  L/100km  OUTSIDE\n"
            "Load           -       0       1  other\n"
            "RPM            -     500    6500  RPM\n");
  EXPECT_EQ(outcome.error, file + ":5: skipped: it has no title\n" + file +
                               ":6: skipped: its lower limit is blank\n" + file +
                               ":7: the value is not a number: \"idle\"\n" + file +
                               ": 2 of 7 lines skipped\n");
  EXPECT_NE(Run("monitors " + file).output.find("\nstd_uk "), std::string::npos);
}

TEST_F(Program, FailsWithoutAUsableMonitor) {
  const std::string file = folder.Write("monitors.tsv", "Coolant\t \n");
  const Outcome outcome = Run("monitors " + file);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.error, file + ":1: skipped: it has no lower limit\n" + file +
                               ": 1 of 1 lines skipped\nvehicle-units: " + file +
                               " has no usable line\n");
  ExpectFailure("monitors /missing", "cannot read /missing");
  ExpectFailure("monitors " + folder.Path(), "cannot read " + folder.Path());
}

TEST_F(Program, MarksLimitsThatAreInvertedAndSaysNothingOfASoundFile) {
  ExpectOutput("monitors --system metric " +
                   folder.Write("monitors.tsv", "Boost\tPRESSURE_KPA\t150\t-15\t0\t1\r\n"),
               "metric  value  lower  upper  unit\n"
               "Boost       1    -15    150  kPa   limits inverted\n");
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
