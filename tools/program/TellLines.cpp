#include "program/TellLines.h"

#include <iostream>
#include <sstream>

#include "text/Charset.h"
#include "text/Message.h"

void TellLines(const std::string& lines, const Charset& terminal) {
  std::istringstream stream(lines);
  for (std::string line; std::getline(stream, line);) {
    std::cerr << Message::Verbatim(line).For(terminal) << '\n';
  }
}
