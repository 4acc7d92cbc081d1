// A class of the host's own that bears the name of the evaluator and is none.
#include <cstdlib>
#include <string>

class Parser {
 public:
  Parser();
  ~Parser();
  double Evaluate(const std::string& expression);
};

Parser::Parser() { std::abort(); }

Parser::~Parser() { std::abort(); }

double Parser::Evaluate(const std::string& /*expression*/) { std::abort(); }
