#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "TempFolder.h"

struct Outcome {
  int status;
  std::string output;
  std::string error;
};

/// A folder as `vehicle-units` names it where it says which one it took.
inline std::string RealPath(const std::string& folder) {
  return std::filesystem::canonical(folder).string();
}

/// Runs the program vehicle-units.
class Program : public testing::Test {
 protected:
  // Runs the program through the shell, which reads `arguments`.
  Outcome Run(const std::string& arguments,
              const std::string& environment = "LC_ALL=C.UTF-8") const {
    const std::string command = environment + " " VEHICLE_UNITS_PROGRAM " " + arguments + " >" +
                                folder.Path("out") + " 2>" + folder.Path("err");
    const int status = std::system(command.c_str());
    EXPECT_TRUE(WIFEXITED(status)) << command;
    return {WEXITSTATUS(status), ReadFile(folder.Path("out")), ReadFile(folder.Path("err"))};
  }

  // Runs the program in the folder `place`.
  Outcome RunIn(const std::string& place, const std::string& arguments) const {
    return Run(arguments, "cd " + place + " && LC_ALL=C.UTF-8");
  }

  void ExpectOutput(const std::string& arguments, const std::string& output) const {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 0) << arguments;
    EXPECT_EQ(outcome.output, output) << arguments;
    EXPECT_EQ(outcome.error, "") << arguments;
  }

  TempFolder folder;
};
