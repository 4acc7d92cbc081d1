#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <stdexcept>
#include <string>

#include "host/Parser.h"

namespace {

TEST(Parser, StartsWithPiAndE) {
  const std::map<std::string, double> expected{{"pi", 3.141592653589793}, {"e", 2.718281828459045}};
  EXPECT_EQ(Parser().variables, expected);
}

TEST(Parser, TakesTheValuesOfTheMoment) {
  Parser parser;
  parser.variables["val"] = 3;
  EXPECT_EQ(parser.Evaluate("val * val"), 9);
  parser.variables["val"] = 4;
  EXPECT_EQ(parser.Evaluate("val * val"), 16);
  parser.variables.erase("val");
  EXPECT_THROW(parser.Evaluate("val * val"), std::runtime_error);
  parser.variables["val"] = 5;
  EXPECT_EQ(parser.Evaluate("val * val"), 25);
}

TEST(Parser, RefusesWhatIsNoExpressionAndStaysUsable) {
  Parser parser;
  for (const char* text :
       {"", " ", "1 +", "(1", "vol", "_pi", "_e", "2.1e3088", "\"text\"", "1 2", "sin()", "1e"}) {
    EXPECT_THROW(parser.Evaluate(text), std::runtime_error) << text;
  }
  EXPECT_EQ(parser.Evaluate("1 + 1"), 2);
  EXPECT_EQ(parser.variables.size(), 2U);
}

TEST(Parser, SaysWhyItRefuses) {
  try {
    Parser().Evaluate("2 * vol");
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "no variable \"vol\"");
  }
}

TEST(Parser, EvaluatesOperatorByOperatorAsWritten) {
  Parser parser;
  parser.variables["val"] = 0.1;
  volatile double val = 0.1;  // evaluated here at run time, one rounding an operator
  EXPECT_EQ(parser.Evaluate("val * 3 * 7"), val * 3 * 7);
  EXPECT_EQ(parser.Evaluate("val + val + val + 3"), val + val + val + 3);
  EXPECT_EQ(parser.Evaluate("(val - 32) / 1.8"), (val - 32) / 1.8);
  EXPECT_EQ(parser.Evaluate("2 * val + 3 * val"), 2 * val + 3 * val);
  EXPECT_EQ(parser.Evaluate("val * 10 - 1"), 0);
  EXPECT_EQ(parser.Evaluate("235.21458333333334 / val"), 235.21458333333334 / val);
}

TEST(Parser, AnAssignmentStaysInsideItsEvaluation) {
  Parser parser;
  parser.variables["val"] = 2;
  EXPECT_EQ(parser.Evaluate("val = val + 1"), 3);
  EXPECT_EQ(parser.Evaluate("val = val + 1"), 3);
  EXPECT_EQ(parser.variables["val"], 2);
}

TEST(Parser, DividingByZeroFollowsTheArithmetic) {
  Parser parser;
  parser.variables["val"] = 0;
  EXPECT_EQ(parser.Evaluate("1 / val"), HUGE_VAL);
}

}  // namespace
