#pragma once

#include <map>
#include <memory>
#include <string>

// Of this library alone: a class of the host's own that is called Parser, too, is another one to
// the linker.
inline namespace vehicle_units_host {

/// Evaluates expressions over a table of variables.
///
///     Parser parser;
///     parser.variables["val"] = 21;
///     parser.Evaluate("2 * val");   // 42
///     parser.Evaluate("2 * pi");    // 6.283185307179586
///     parser.Evaluate("2 * vol");   // throws std::runtime_error: no entry "vol"
///     parser.Evaluate("");          // throws std::runtime_error
///
/// Every name in an expression that is not one of the evaluator's functions is an entry of
/// `variables`. An expression means its IEEE double evaluation, operator by operator as written:
/// nothing is reordered or folded.
///
/// Threads: a parser has no lock and belongs to one thread at a time.
class __attribute__((visibility("default"))) Parser {
 public:
  /// A parser whose table holds "pi" (3.141592653589793) and "e" (2.718281828459045).
  Parser();
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser();

  /// The value of `expression` with the values that the names it uses have in `variables` now. A
  /// text is compiled the first time that it is evaluated and kept until the parser is destroyed;
  /// where it cannot be compiled, its message is kept. Compiling neither traps in the thread's
  /// floating-point environment nor changes it, and numbers are read to the nearest double whatever
  /// its rounding is; the evaluation itself is the caller's own arithmetic.
  /// An assignment inside an expression changes nothing outside that evaluation. The text ends at
  /// its first NUL.
  ///
  /// Throws `std::runtime_error` with a message for a text that is no expression, the empty one and
  /// one of 20,000 bytes or more included, and for a name that is not in `variables`;
  /// `std::bad_alloc` when memory runs out, which is never remembered as a fault of the text.
  /// The parser stays usable in every case.
  double Evaluate(const std::string& expression);

  std::map<std::string, double> variables;  ///< The values of the names, for the caller to set.

 private:
  class CompiledExpressions;
  std::unique_ptr<CompiledExpressions> compiled;
};

}  // namespace vehicle_units_host
