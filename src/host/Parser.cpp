#include "host/Parser.h"

#include <muParser.h>

#include <cctype>
#include <new>
#include <sstream>
#include <stdexcept>
#include <unordered_map>

namespace {

class Expression {
 public:
  explicit Expression(const std::string& text) {
    parser.EnableOptimizer(false);
    parser.ClearConst();
    parser.SetVarFactory(&Expression::AddName, this);
    parser.SetExpr(text);
    parser.Eval();  // the first evaluation compiles
  }
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  double Evaluate(const std::map<std::string, double>& variables) {
    for (auto& [name, value] : values) {
      const auto variable = variables.find(name);
      if (variable == variables.end()) {
        throw std::runtime_error("no variable \"" + name + "\"");
      }
      value = variable->second;
    }
    return parser.Eval();
  }

 private:
  static double* AddName(const char* name, void* self) {
    if (std::isdigit(static_cast<unsigned char>(*name)) != 0) {
      RefuseNumber(name);
    }
    return &static_cast<Expression*>(self)->values[name];
  }

  // muParser takes a number for a name when it cannot read it, be it for lack of memory.
  [[noreturn]] static void RefuseNumber(const char* text) {
    std::istringstream stream(text);
    stream.exceptions(std::ios::badbit);
    double number = 0;
    if (stream >> number) {
      throw std::bad_alloc();
    }
    throw std::runtime_error("no number \"" + std::string(text) + '"');
  }

  std::map<std::string, double> values;
  mu::Parser parser;
};

}  // namespace

class Parser::CompiledExpressions
    : public std::unordered_map<std::string, std::unique_ptr<Expression>> {};

Parser::Parser()
    : variables{{"pi", 3.141592653589793}, {"e", 2.718281828459045}},
      compiled(std::make_unique<CompiledExpressions>()) {}

Parser::~Parser() = default;

double Parser::Evaluate(const std::string& expression) {
  try {
    auto found = compiled->find(expression);
    if (found == compiled->end()) {
      found = compiled->emplace(expression, std::make_unique<Expression>(expression)).first;
    }
    return found->second->Evaluate(variables);
  } catch (const mu::ParserError& error) {
    throw std::runtime_error(error.GetMsg());
  }
}
