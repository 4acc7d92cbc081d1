#include <gtest/gtest.h>

#include <cfenv>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/Parser.h"

namespace {

std::string Refusal(Parser& parser, const std::string& text) {
  try {
    return "the value " + std::to_string(parser.Evaluate(text));
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

TEST(Parser, TakesTheValuesOfTheMomentAndKeepsItsTable) {
  Parser parser;
  const std::map<std::string, double> fresh{{"pi", 3.141592653589793}, {"e", 2.718281828459045}};
  EXPECT_EQ(parser.variables, fresh);
  parser.variables["val"] = 3;
  EXPECT_EQ(parser.Evaluate("val = val + 1"), 4);
  EXPECT_EQ(parser.Evaluate("val = val + 1"), 4);
  parser.variables["val"] = 0;
  EXPECT_EQ(parser.Evaluate("1 / val"), std::numeric_limits<double>::infinity());
  parser.variables.erase("val");
  EXPECT_EQ(Refusal(parser, "1 / val"), "no variable \"val\"");
  EXPECT_EQ(parser.variables, fresh);
  std::string text = "val * val";
  parser.variables["val"] = 5;
  EXPECT_EQ(parser.Evaluate(text), 25);
  text = "val + val";
  EXPECT_EQ(parser.Evaluate(text), 10) << "the same string holds another text";
}

TEST(Parser, SaysWhyItRefusesEachTime) {
  const std::string large = '1' + std::string(400, '0') + "e-10";
  const std::vector<std::pair<std::string, std::string>> refusals{
      {"", "Expression is empty."},
      {"2 * (val", "Missing parenthesis"},
      {"_pi", "no variable \"_pi\""},
      {"1e+", "cannot read the number that begins with 1e"},
      {"1E999", "cannot read the number that begins with 1E999"},
      {"1e99999999999999999999", "cannot read the number that begins with 1e99999999999999999999"},
      {large, "cannot read the number that begins with " + large.substr(0, large.size() - 3)},
      {".", "Unexpected token \". \" found at position 0."},
      {".5e999", "Unexpected token \".5e999 \" found at position 0."},
      {std::string(20000, ' '), "Expression too long."}};
  Parser parser;
  parser.variables["val"] = 1;
  for (const auto& [text, why] : refusals) {
    EXPECT_EQ(Refusal(parser, text), why);
    EXPECT_EQ(Refusal(parser, text), why) << "again";
  }
}

TEST(Parser, ReadsAndComputesToTheLastBitOperatorByOperator) {
  const std::string zeros(400, '0');
  const std::vector<std::pair<std::string, double>> numbers{
      {"1. + .5", 1.5},
      {"1E+5 + 1.e-5", 100000.00001},
      {"9007199254740993." + zeros + zeros + '1', 9007199254740994},
      {"1.7976931348623158e308", std::numeric_limits<double>::max()},
      {"3e-324", std::numeric_limits<double>::denorm_min()},
      {"1e-99999999999999999999", 0},
      {"0e99999999999999999999", 0},
      {'1' + zeros + "e-800", 0},
      {"0." + zeros + '1', 0},
      {std::string(19998, ' ') + '3', 3},
      {'3' + std::string(20000, '\0'), 3},
      {"val * 3 * 7", 0x1.0cccccccccccep+1}};
  Parser parser;
  parser.variables["val"] = 0.1;
  for (const auto& [text, number] : numbers) {
    EXPECT_EQ(parser.Evaluate(text), number) << text;
  }
}

TEST(Parser, LeavesTheFloatingPointEnvironmentAloneWhenItCompiles) {
  std::fenv_t before;
  std::fegetenv(&before);
  Parser parser;
  parser.variables["val"] = 1;
  std::feclearexcept(FE_ALL_EXCEPT);
  std::fesetround(FE_UPWARD);
  const double quotient = parser.Evaluate("0.3 / val");  // which is exact
  EXPECT_THROW(parser.Evaluate("0.7 / val + "), std::runtime_error);
  const int flags = std::fetestexcept(FE_ALL_EXCEPT);
  const int rounding = std::fegetround();
  std::fesetround(FE_TONEAREST);
  if (feenableexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW) != -1) {  // or it cannot trap
    EXPECT_EQ(parser.Evaluate("235.2 / val"), 235.2);
  }
  std::fesetenv(&before);
  EXPECT_EQ(quotient, 0.3);
  EXPECT_EQ(flags, 0);
  EXPECT_EQ(rounding, FE_UPWARD);
}

}  // namespace
