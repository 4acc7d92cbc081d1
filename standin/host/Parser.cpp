#include "host/Parser.h"

#include <muParser.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <list>
#include <stdexcept>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "util/FindLastFirst.h"
#include "util/PlainArithmetic.h"

namespace {

const char* SkipDigits(const char* text) {
  while (std::isdigit(static_cast<unsigned char>(*text)) != 0) {
    ++text;
  }
  return text;
}

const char* SkipNumber(const char* text) {
  text = SkipDigits(text);
  if (*text == '.') {
    text = SkipDigits(text + 1);
  }
  if (*text == 'e' || *text == 'E') {
    ++text;
    text = SkipDigits(*text == '+' || *text == '-' ? text + 1 : text);
  }
  return text;
}

// Of a number that is out of a double's range: which end of it is told by how far before the point
// the first digit stands, and by the exponent.
bool IsTiny(const char* text, const char* end) {
  const char* point = SkipDigits(text);
  const char* first = text + std::strspn(text, "0.");
  const char* e = std::find_if(text, end, [](char c) { return c == 'e' || c == 'E'; });
  const long exponent = e == end ? 0 : std::strtol(e + 1, nullptr, 10);
  return exponent < first - point;
}

// muParser's own reader, which is asked about what this one refuses, takes a number for something
// else when memory runs out while it reads. This one needs no memory and reads the same numbers:
// one too small for a double is 0; one too large, or without the digits of its exponent, is none.
int ReadNumber(const char* text, int* position, double* value) {
  const char* end = SkipNumber(text);
  double number = 0;
  const auto [rest, error] = std::from_chars(text, end, number);
  const bool isTiny = error == std::errc::result_out_of_range && IsTiny(text, end);
  if (rest != end || (error != std::errc() && !isTiny)) {
    return 0;
  }
  *position += static_cast<int>(end - text);
  *value = isTiny ? 0 : number;
  return 1;
}

class Expression {
 public:
  explicit Expression(const std::string& text) {
    parser.EnableOptimizer(false);
    parser.ClearConst();
    parser.AddValIdent(&ReadNumber);
    parser.SetVarFactory(&Expression::AddName, this);
    parser.SetExpr(text.substr(0, text.find('\0')));
    parser.Eval();  // the first evaluation, with 0 for each name, compiles
  }
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  double Evaluate(const std::map<std::string, double>& variables) {
    for (auto& [name, value] : values) {
      const auto variable = util::FindLastFirst(variables, name);
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
      throw mu::ParserError("cannot read the number that begins with " + std::string(name));
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
  // place, with one comparison of its text and no hash. The rest is kept out of that path.
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

  [[gnu::noinline]] Entry& Find(const std::string& text) {
    if (IsTooLong(text)) {  // which is told at once and needs no remembering
      throw mu::ParserError(mu::ecEXPRESSION_TOO_LONG);
    }
    const auto found = expressions.find(text);
    if (found != expressions.end()) {
      return *found;
    }
    const auto refusal = refusals.find(text);
    if (refusal != refusals.end()) {
      throw refusal->second;
    }
    return Compile(text);
  }

  static bool IsTooLong(const std::string& text) {
    return text.size() >= mu::MaxLenExpression &&
           std::memchr(text.data(), '\0', mu::MaxLenExpression) == nullptr;
  }

  Entry& Compile(const std::string& text) {
    const util::PlainArithmetic arithmetic;
    try {
      return *expressions.emplace(text, std::make_unique<Expression>(text)).first;
    } catch (const mu::ParserError& error) {
      throw refusals.emplace(text, error.GetMsg()).first->second;
    }
  }

  std::unordered_map<std::string, std::unique_ptr<Expression>> expressions;
  std::unordered_map<std::string, std::runtime_error> refusals;
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
