#include <exception>
#include <iostream>

#include "program/CommandLine.h"
#include "program/TellException.h"
#include "text/Charset.h"
#include "text/Failure.h"

namespace {

constexpr int kFailed = 1;

int Run(int argc, char** argv, const Charset& terminal) {
  const int status = RunCommandLine(argc, argv, terminal);
  if (status == 0 && !std::cout.flush()) {
    throw Failure("cannot write to standard output");
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Charset terminal = Charset::OfTerminal();
    try {
      return Run(argc, argv, terminal);
    } catch (const std::exception&) {
      std::cout.flush();
      TellException(terminal);
    }
  } catch (const std::exception& error) {
    std::cerr << "vehicle-units: " << error.what() << '\n';
  }
  return kFailed;
}
