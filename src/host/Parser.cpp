#include "host/Parser.h"

#include <muParser.h>

#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <list>
#include <stdexcept>
#include <unordered_map>
#include <utility>

namespace {

class UnreadNumber : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Expression {
 public:
  explicit Expression(const std::string& text) {
    parser.EnableOptimizer(false);
    parser.ClearConst();
    parser.SetVarFactory(&Expression::AddName, this);
    // muParser cannot read a number that a NUL follows.
    parser.SetExpr(text.substr(0, text.find('\0')));
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
      throw UnreadNumber("cannot read the number that begins with " + std::string(name));
    }
    return &static_cast<Expression*>(self)->values.emplace_back(name, 0).second;
  }

  std::list<std::pair<std::string, double>> values;
  mu::Parser parser;
};

}  // namespace

class Parser::CompiledExpressions {
 public:
  // The host asks for the same few strings again and again: what a string held last is found by its
  // place, with one comparison of its text and no hash.
  Expression& Get(const std::string& text) {
    const auto place = reinterpret_cast<std::uintptr_t>(&text) / alignof(std::max_align_t);
    Entry*& recent = recents[place % recents.size()];
    if (recent == nullptr || recent->first != text) {
      recent = &Find(text);
    }
    return *recent->second;
  }

 private:
  using Entry = std::pair<const std::string, std::unique_ptr<Expression>>;

  Entry& Find(const std::string& text) {
    const auto found = expressions.find(text);
    return found != expressions.end() ? *found : *expressions.emplace(text, Compile(text)).first;
  }

  // muParser takes a number that it cannot read for a name, also when all that lacked was memory: a
  // second try tells.
  static std::unique_ptr<Expression> Compile(const std::string& text) {
    try {
      return std::make_unique<Expression>(text);
    } catch (const UnreadNumber&) {
      return std::make_unique<Expression>(text);
    }
  }

  std::unordered_map<std::string, std::unique_ptr<Expression>> expressions;
  std::array<Entry*, 256> recents{};
};

Parser::Parser()
    : variables{{"pi", 3.141592653589793}, {"e", 2.718281828459045}},
      compiled(std::make_unique<CompiledExpressions>()) {}

Parser::~Parser() = default;

double Parser::Evaluate(const std::string& expression) {
  try {
    return compiled->Get(expression).Evaluate(variables);
  } catch (const mu::ParserError& error) {
    throw std::runtime_error(error.GetMsg());
  }
}
