#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "TempFolder.h"

struct Outcome {
  int status;
  std::string output;
  std::string error;
};

inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// Runs the program vehicle-units.
class Program : public testing::Test {
 protected:
  // Runs the program through the shell, which reads `arguments`.
  Outcome Run(const std::string& arguments, const std::string& input = "",
              const std::string& environment = "LC_ALL=C.UTF-8") const {
    const std::string command = environment + " " VEHICLE_UNITS_PROGRAM " " + arguments + " <" +
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
