#include "program/InputLines.h"

#include <cstddef>
#include <iostream>

#include "text/Failure.h"

void ForEachInputLine(const std::function<void(const std::string&)>& take) {
  std::size_t number = 0;
  for (std::string line; std::getline(std::cin, line);) {
    ++number;
    try {
      take(line);
    } catch (const Failure& failure) {
      throw Failure("line " + std::to_string(number) + " of standard input: " + failure.Told());
    }
  }
}
