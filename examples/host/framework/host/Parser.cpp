#include "host/Parser.h"

#include <cctype>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace {

const std::map<std::string, double> kConstants{{"pi", 3.141592653589793}, {"e", 2.718281828459045}};

// Reads one expression from left to right; `next` stands at the first character not yet read.
class Reader {
 public:
  Reader(const char* text, const std::map<std::string, double>& variables)
      : next(text), variables(variables) {}

  double ReadAll() {
    const double value = Sum();
    if (*next != '\0') {
      throw std::runtime_error(std::string("cannot read \"") + next + '"');
    }
    return value;
  }

 private:
  bool Take(char c) {
    SkipBlanks();
    if (*next != c) {
      return false;
    }
    ++next;
    SkipBlanks();
    return true;
  }

  void SkipBlanks() {
    while (*next == ' ') {
      ++next;
    }
  }

  double Sum() {
    double value = Product();
    while (true) {
      if (Take('+')) {
        value += Product();
      } else if (Take('-')) {
        value -= Product();
      } else {
        return value;
      }
    }
  }

  double Product() {
    double value = Factor();
    while (true) {
      if (Take('*')) {
        value *= Factor();
      } else if (Take('/')) {
        value /= Factor();
      } else {
        return value;
      }
    }
  }

  double Factor() {
    if (Take('-')) {
      return -Factor();
    }
    if (Take('(')) {
      const double value = Sum();
      if (!Take(')')) {
        throw std::runtime_error("a parenthesis is not closed");
      }
      return value;
    }
    return std::isalpha(static_cast<unsigned char>(*next)) != 0 ? Variable() : Number();
  }

  double Variable() {
    std::string name;
    while (std::isalnum(static_cast<unsigned char>(*next)) != 0) {
      name += *next++;
    }
    const auto variable = variables.find(name);
    if (variable == variables.end()) {
      throw std::runtime_error("no variable \"" + name + '"');
    }
    return variable->second;
  }

  double Number() {
    char* end = nullptr;
    const double value = std::strtod(next, &end);
    if (end == next) {
      throw std::runtime_error(std::string("no number: \"") + next + '"');
    }
    next = end;
    return value;
  }

  const char* next;
  const std::map<std::string, double>& variables;
};

}  // namespace

Parser::Parser() : variables(kConstants) {}

double Parser::Evaluate(const std::string& expression) {
  const auto given = std::exchange(variables, kConstants);
  return Reader(expression.c_str(), given).ReadAll();
}
