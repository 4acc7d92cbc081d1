#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>

#include "Program.h"

namespace {

// A script that shows each command of a session before what it prints, and a status other than 0.
std::string ScriptOf(const std::string& session) {
  std::string script = "vehicle-units() { env $LOCALE " VEHICLE_UNITS_PROGRAM " \"$@\"; }\n";
  std::istringstream lines(session);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("$ ", 0) == 0) {
      script.append("cat <<'LINE'\n").append(line).append("\nLINE\n{ ").append(line, 2);
      script += "\n} 2>&1 || echo \"[status $?]\"\n";
    }
  }
  return script;
}

TEST_F(Program, PrintsWhatTheSessionsShow) {
  const std::string document = ReadFile(VEHICLE_UNITS_SOURCE "/tests/data/sessions.md");
  const std::regex block("```console\n([^`]*)```");
  int sessions = 0;
  for (std::sregex_iterator i(document.begin(), document.end(), block), end; i != end; ++i) {
    const TempFolder place;
    const std::string script = folder.Write("script", ScriptOf((*i)[1]));
    const std::string command =
        "cd " + place.Path() + " && LC_ALL=C.UTF-8 bash " + script + " >" + folder.Path("out");
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadFile(folder.Path("out")), (*i)[1]);
    ++sessions;
  }
  EXPECT_GT(sessions, 15);
}

TEST_F(Program, FindsTheNearestOfVeryLongNamesAtOnce) {
  const std::string name(100'000, 'n');
  std::string targets;
  for (int i = 0; i < 20; ++i) {
    targets += "<tounit id='" + name + std::to_string(i) + "'><conv to_float='val'/></tounit>";
  }
  folder.Write("UNIT_CONVERSIONS.xml",
               "<unit_conversions><fromunit id='A'>" + targets + "</fromunit></unit_conversions>");
  folder.Write("C_UNIT_ASSOCIATIONS_STD.xml",
               "<unit_associations><unitassoc id='A' tounit='" + name + "'/></unit_associations>");
  const std::string nearest = "; nearest: " + name + "0, ";
  const auto run = [&](const std::string& arguments) {
    return Run(arguments + " --data " + folder.Path(), "LC_ALL=C.UTF-8 timeout 20");
  };
  EXPECT_NE(run("convert A " + name).error.find(nearest), std::string::npos);
  EXPECT_NE(run("check").output.find(nearest), std::string::npos);
}

TEST_F(Program, HelpsAlsoByTheCommandHelp) {
  EXPECT_NE(Run("--help").output.find("\n  convert "), std::string::npos);
  ExpectOutput("help", Run("--help").output);
  const std::string help = Run("convert --help").output;
  EXPECT_NE(help.find("\n  " + RealPath(VEHICLE_UNITS_SOURCE "/data") + '\n'), std::string::npos);
  ExpectOutput("help convert", help);
}

TEST_F(Program, TakesTheCurrentFolderWhereItHoldsDataOfEitherKind) {
  for (const char* file : {"a/UNIT_CONVERSIONS.xml", "b/CAR_UNIT_ASSOCIATIONS_GREEK.xml"}) {
    const std::string place = folder.Write(file, "").substr(0, folder.Path().size() + 1);
    EXPECT_NE(RunIn(place, "units --help").output.find("\n  " + RealPath(place) + '\n'),
              std::string::npos);
    EXPECT_EQ(RunIn(place, "units").error, "vehicle-units: cannot read ./UNIT_CONVERSIONS.xml\n");
  }
}

}  // namespace
