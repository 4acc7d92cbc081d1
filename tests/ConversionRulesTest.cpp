#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>

#include "Program.h"

namespace {

std::string FromUnit(const std::string& id, const std::string& children) {
  return "<fromunit id='" + id + "'>" + children + "</fromunit>";
}

std::string ToUnit(const std::string& id, const std::string& conv) {
  return "<tounit id='" + id + "'>" + conv + "</tounit>";
}

std::string Expression(const std::string& text) { return "<conv to_float='" + text + "'/>"; }

std::string Slope(const std::string& scalar, const std::string& offset = "0") {
  return "<conv type='slope-int' scalar='" + scalar + "' offset='" + offset + "'/>";
}

class ConversionRules : public Program {
 protected:
  // What is found in a conversion file, one finding a line, without its place and figures.
  std::string FoundIn(const std::string& conversions) const {
    folder.Write("UNIT_CONVERSIONS.xml",
                 "<unit_conversions>" + conversions + "</unit_conversions>");
    std::istringstream output(Run("check --data " + folder.Path()).output);
    std::string found;
    const std::string place = folder.Path("UNIT_CONVERSIONS.xml:");
    const std::regex left(folder.Path() + "| by a relative error [^\\[]*(?= )");
    for (std::string line; std::getline(output, line) && line.rfind(place, 0) == 0;) {
      found.append(found.empty() ? "" : "\n");
      found += std::regex_replace(line.substr(line.find(' ') + 1), left, "");
    }
    return found;
  }
};

TEST_F(ConversionRules, JudgeEachElementOfASourceUnit) {
  const std::string good = ToUnit("B", Expression("val"));
  const struct {
    std::string conversions;
    const char* found;
  } cases[] = {
      {"<fromunit id=''>" + good + "</fromunit>",
       "error: <fromunit> lacks the tag \"id\" [missing-id]"},
      {FromUnit("A", "<id>C</id>" + good),
       "warning: \"id\" is given as an attribute too, which counts: the element is not read "
       "[field-given-twice]"},
      {"<fromunit><id x='1'>A</id>" + good + "</fromunit>",
       "warning: the attribute \"x\" of <id> is never read [unread-attribute]"},
      {FromUnit("A", "<note/>" + good),
       "warning: <note> of <fromunit> is never read [unread-element]"},
      {FromUnit("A", good + "<id>C</id>"),
       "warning: \"id\" is given as an attribute too, which counts: the element is not read "
       "[field-given-twice]"},
      {FromUnit("A", "<tounit id=''>" + Expression("val") + "</tounit>"),
       "error: <tounit> of \"A\" has an empty \"id\" [tounit-without-id]"},
      {FromUnit("A", "<tounit id='B'><note/>" + Expression("val") + "</tounit>"),
       "warning: <note> of <tounit> is never read [unread-element]"},
      {FromUnit("A", good + ToUnit("C", "<conv type='slope'/>") + "<tounit/>"),
       "error: the type \"slope\" is unknown (is \"pt-slope\" meant?); the reading of \"A\" ends "
       "here [unknown-type]"},
      {FromUnit("A", ToUnit("B", "<conv type='slope_int'/>") + ToUnit("C", Expression("val"))),
       "error: the type \"slope_int\" is unknown (is \"slope-int\" meant?); the reading of \"A\" "
       "ends here, so these are lost: \"C\" [unknown-type]"},
      {FromUnit("A", ToUnit("B", "<conv type='nonsense'/>")),
       "error: the type \"nonsense\" is unknown; the reading of \"A\" ends here [unknown-type]"},
      {FromUnit("A", ToUnit("B", "<conv type='direct'/>")),
       "error: the type \"direct\" converts nothing; the reading of \"A\" ends here "
       "[unusable-type]"},
      {FromUnit("A", ToUnit("B", "<conv/>")),
       "error: <conv> has neither \"type\" nor \"to_float\"; the reading of \"A\" ends here "
       "[conv-without-formula]"},
      {FromUnit("A", good + ToUnit("B", Expression("2 * va"))),
       "warning: \"A\" into \"B\" is defined again; what counts is \"2 * va\"; the first "
       "definition stands at UNIT_CONVERSIONS.xml:1:36 [repeated-definition]\n"
       "error: the expression \"2 * va\" uses names that are not there: va [unknown-variable]"},
      {FromUnit("A", good + ToUnit("B", Slope("1", "-2"))),
       "warning: \"A\" into \"B\" is defined again; what counts is \"val - 2\"; the first "
       "definition stands at UNIT_CONVERSIONS.xml:1:36 [repeated-definition]"},
      {FromUnit("A", good + ToUnit("B", Slope("2", "2"))),
       "warning: \"A\" into \"B\" is defined again; what counts is \"2 * val + 2\"; the first "
       "definition stands at UNIT_CONVERSIONS.xml:1:36 [repeated-definition]"},
  };
  for (const auto& [conversions, found] : cases) {
    EXPECT_EQ(FoundIn(conversions), found) << conversions;
  }
}

TEST_F(ConversionRules, JudgeConstantsAndExpressions) {
  const struct {
    std::string conv;
    const char* found;
  } cases[] = {
      {Slope("0x10"), "error: the scalar \"0x10\" is not a number: it is read as 0 [bad-number]"},
      {Slope("1e999"),
       "error: the scalar \"1e999\" is not finite: it is read as 1.7976931348623157e+308 "
       "[number-not-finite]"},
      {Slope("x", ""),
       "error: the scalar \"x\" is not a number: it is read as 0 [bad-number]\n"
       "error: the offset \"\" is not a number: it is read as 0 [bad-number]"},
      {Expression("1 / 0 * val"),
       "warning: the expression \"1 / 0 * val\" is not finite: it gives inf for 1e-06 "
       "[expression-not-finite]"},
      {Expression("Z9_z * val + 2 * sin(aZ)"),
       "error: the expression \"Z9_z * val + 2 * sin(aZ)\" uses names that are not there: Z9_z, aZ "
       "[unknown-variable]"},
      {Expression("sqrt"),
       "error: the expression \"sqrt\" uses names that are not there: sqrt [unknown-variable]"},
  };
  for (const auto& [conv, found] : cases) {
    EXPECT_EQ(FoundIn(FromUnit("A", ToUnit("B", conv))), found) << conv;
  }
}

TEST_F(ConversionRules, CompareOnlyWaysThatCanBeGone) {
  const auto way = [](const std::string& from, const std::string& to, const std::string& conv) {
    return FromUnit(from, ToUnit(to, conv));
  };
  const auto both = [&way](const std::string& from, const std::string& to,
                           const std::string& scalar) {
    return way(from, to, Slope(scalar)) + way(to, from, Expression("val / " + scalar));
  };
  const std::string oneWay = way("A", "B", Slope("2")) + way("B", "C", Slope("2"));
  const struct {
    std::string conversions;
    const char* found;
  } cases[] = {
      {way("A", "B", Slope("2")) + way("B", "A", Slope("0")),
       "error: a scalar of 0 makes every value the same [zero-scalar]"},
      {way("A", "B", Slope("0")) + way("B", "A", Slope("2")),
       "error: a scalar of 0 makes every value the same [zero-scalar]"},
      {way("A", "A", Slope("2")) + both("A", "B", "2"), ""},
      {oneWay + way("A", "C", Slope("4")), ""},
      {way("A", "B", Slope("2")) + both("A", "C", "4") + both("B", "C", "2"), ""},
      {oneWay + way("A", "C", Slope("5")),
       "error: \"A\" into \"C\" does not fit: \"A\" -> \"B\" -> \"C\" and \"A\" -> \"C\" differ "
       "[ways-disagree]"},
      {oneWay + way("A", "C", Slope("0")),
       "error: a scalar of 0 makes every value the same [zero-scalar]"},
      {oneWay + both("A", "C", "5"),
       "error: \"A\" into \"C\" does not fit: \"A\" -> \"B\" -> \"C\" and \"A\" -> \"C\" differ "
       "[ways-disagree]"},
      {both("A", "B", "2") + way("B", "C", Slope("2")) + way("A", "C", Slope("5")),
       "error: \"A\" into \"C\" does not fit: \"A\" -> \"B\" -> \"C\" and \"A\" -> \"C\" differ "
       "[ways-disagree]"},
      {both("A", "B", "2") + both("B", "C", "2") + way("A", "C", Slope("5")),
       "error: \"A\" into \"C\" does not fit: \"A\" -> \"B\" -> \"C\" and \"A\" -> \"C\" differ "
       "[ways-disagree]"},
      {both("A", "B", "2") + way("B", "C", Slope("2")) + way("C", "B", Slope("2")) +
           way("A", "C", Slope("5")),
       "error: \"C\" into \"B\" is not the inverse of \"B\" into \"C\" at "
       "UNIT_CONVERSIONS.xml:1:212: there and back differs [not-inverse]"},
      {both("A", "B", "2") + both("B", "C", "2") + both("A", "C", "5"),
       "error: \"B\" into \"C\" does not fit: \"A\" -> \"B\" -> \"C\" and \"A\" -> \"C\" differ "
       "[ways-disagree]"},
      {both("A", "B", "3") + both("A", "C", "4") + both("B", "C", "2") + both("B", "D", "4") +
           both("A", "D", "8") + both("C", "D", "2"),
       "error: \"A\" into \"B\" does not fit: \"A\" -> \"B\" -> \"C\" and \"A\" -> \"C\" differ "
       "[ways-disagree]"},
      {both("A", "B", "2") + both("B", "C", "2") + both("A", "C", "5") + both("E", "F", "2") +
           both("F", "G", "2") + both("E", "G", "5") + both("G", "H", "2") + both("E", "H", "9"),
       "error: \"B\" into \"C\" does not fit: \"A\" -> \"B\" -> \"C\" and \"A\" -> \"C\" differ "
       "[ways-disagree]\n"
       "error: \"E\" into \"G\" does not fit: \"E\" -> \"F\" -> \"G\" and \"E\" -> \"G\" differ "
       "[ways-disagree]"},
  };
  for (const auto& [conversions, found] : cases) {
    EXPECT_EQ(FoundIn(conversions), found) << conversions;
  }
}

}  // namespace
