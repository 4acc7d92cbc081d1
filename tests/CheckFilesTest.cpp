#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>
#include <vector>

#include "Program.h"

namespace {

const std::string kConversions =
    "<unit_conversions><fromunit id='A'><tounit id='B'><conv to_float='val'/></tounit></fromunit>"
    "<fromunit id='B'><tounit id='A'><conv to_float='val'/></tounit></fromunit>"
    "</unit_conversions>";

struct Case {
  std::string text;
  std::string findings;
};

std::string Includes(int count) {
  std::string includes;
  for (int i = 0; i < count; ++i) {
    includes += "<include>more.xml</include>";
  }
  return includes;
}

class CheckFiles : public Program {
 protected:
  void WriteConversions(const std::string& text) const {
    folder.Write("UNIT_CONVERSIONS.xml", text);
  }

  // Writes associations that every unit system has.
  void WriteAssociations(const std::string& text) const {
    for (const char* system : {"STD", "STD_UK", "METRIC", "GREEK"}) {
      folder.Write(std::string("X_UNIT_ASSOCIATIONS_") + system + ".xml",
                   "<unit_associations><include>all.xml</include></unit_associations>");
    }
    folder.Write("all.xml", "<unit_associations>" + text + "</unit_associations>");
  }

  // What is found, without the summary.
  std::string Findings() const {
    const std::string output =
        Run("check --data .", "", "cd " + folder.Path() + " && LC_ALL=C.UTF-8").output;
    EXPECT_EQ(output.back(), '\n');
    return output.substr(0, output.rfind('\n', output.size() - 2) + 1);
  }

  // What stands on a terminal in which the folder is checked.
  std::string Terminal() const {
    return Run("check --data " + folder.Path() + "' /dev/null", "", "LC_ALL=C.UTF-8 script -qec '")
        .output;
  }

  // Checks ever larger data, as `write` writes it for a size, until the terminal shows `progress`.
  template <typename Write>
  void ExpectProgress(const std::string& progress, const Write& write) const {
    const std::string clear = "\r\x1B[K";
    const std::regex shown(clear.substr(0, 2) + "\\[K" + progress);
    std::string seen;
    for (int size = 30; size < 400 && !std::regex_search(seen, shown); size += size / 2) {
      write(size);
      seen = Terminal();
    }
    EXPECT_TRUE(std::regex_search(seen, shown)) << seen;
    const std::string last = seen.substr(std::min(seen.size(), seen.rfind(clear)));
    EXPECT_FALSE(std::regex_search(last, shown)) << "not cleared: " << seen;
  }
};

TEST_F(CheckFiles, ComparesTheBytesWithTheDeclaredEncoding) {
  const auto finding = [](const std::string& column, const std::string& text) {
    return "./UNIT_CONVERSIONS.xml:1:" + column + ": error: " + text + " [bad-encoding]\n";
  };
  const auto file = [](const std::string& encoding, const std::string& text) {
    return "<?xml version='1.0' encoding='" + encoding + "'?><!--" + text +
           "--><unit_conversions/>";
  };
  const std::vector<Case> cases{
      {file("latin1", "\xB0"), ""},
      {file("ISO-8859-1", "\xC2\xB0"),
       finding("48", "the bytes are UTF-8, but the declared encoding is ISO-8859-1")},
      {file("ISO-8859-1", "\xB0 \x85"),
       finding("50", "the byte is a control character in ISO-8859-1")},
      {file("none", "\xB0"), finding("1", "the byte is no character of the encoding none")},
      {file("UTF-8", "\xC2\xB0"), ""},
      {"<!--\xC2\xB0--><unit_conversions/>", ""},
      {"<!--\xB0--><unit_conversions/>",
       finding("5", "the byte is no character of the encoding UTF-8")},
  };
  for (const Case& each : cases) {
    WriteConversions(each.text);
    EXPECT_EQ(Findings(), each.findings) << each.text;
  }
}

TEST_F(CheckFiles, TellsWhereAConversionFileIsWrong) {
  const std::string file = "./UNIT_CONVERSIONS.xml:1:";
  const auto conversions = [](const std::string& text) {
    return "<unit_conversions><fromunit id='A'>" + text + "</fromunit></unit_conversions>";
  };
  const std::vector<Case> cases{
      {"<!-- nothing -->",
       file + "1: error: there is no <unit_conversions>: nothing is read [wrong-root]\n"},
      {"<unit_conversions/><more/>",
       file + "20: warning: <more> is not read beside <unit_conversions> [unread-element]\n"},
      {conversions("<tounit id='B'><conv><type>slope-int</type><scalar>0</scalar><offset>1<x/>"
                   "</offset><offset>2</offset></conv></tounit>"),
       file + "79: error: a scalar of 0 makes every value the same [zero-scalar]\n" + file +
           "106: warning: <x> of <offset> is never read [unread-element]\n" + file +
           "119: warning: only the first <offset> in <conv> is read [unread-element]\n"},
      {conversions("<tounit/><tounit id='B'><conv type='bad'/></tounit>"),
       file +
           "36: error: <tounit> of \"A\" lacks the attribute \"id\": it is passed over "
           "[tounit-without-id]\n" +
           file +
           "60: error: the type \"bad\" is unknown; the reading of \"A\" ends here "
           "[unknown-type]\n"},
      {"<?xml version='1.0' encoding='ISO-8859-1'?>" +
           conversions("<tounit id='a b'><conv to_float='val'/></tounit>"
                       "<tounit id='A\xA0\x42'><conv to_float='val'/></tounit>"),
       file +
           "127: warning: \"A\xC2\xA0\x42\" differs only by case or white space from \"a b\" at " +
           file + "79 [similar-units]\n"},
  };
  for (const Case& each : cases) {
    WriteConversions(each.text);
    EXPECT_EQ(Findings(), each.findings) << each.text;
  }
}

TEST_F(CheckFiles, TellsWhereAnAssociationFileIsWrong) {
  const std::string b = "<unitassoc id='A' tounit='B'/>";
  const std::string noId = ": error: <unitassoc> lacks the tag \"id\" [missing-id]\n";
  const std::string repeated =
      "./all.xml:1:50: warning: \"A\" is associated again, and what is given here counts; the "
      "association before stands at ./all.xml:1:20 [repeated-definition]\n";
  const std::vector<Case> cases{
      {b, ""},
      {b + "<unitasoc/>",
       "./all.xml:1:50: error: <unitasoc> of <unit_associations> is not read: is \"unitassoc\" "
       "meant? [misspelt-name]\n"},
      {b + b, repeated},
      {b + "<unitassoc id='A' tounit='A'/>", repeated},
      {b + "<unitassoc id='A'/>", repeated},
      {b + "<unitassoc/><unitassoc id=''/><unitassoc id='' tounit='B'/>",
       "./all.xml:1:50" + noId + "./all.xml:1:62" + noId + "./all.xml:1:80" + noId},
      {b + "<unitassoc id='B'/>",
       "./all.xml:1:50: error: \"B\" has an empty \"tounit\": it is shown without label "
       "[empty-tounit]\n"},
      {b + "<unitassoc id='B'><tounit>A</tounit><tounit>B<x/></tounit></unitassoc>",
       "./all.xml:1:86: warning: only the first <tounit> in <unitassoc> is read [unread-element]\n"
       "./all.xml:1:95: warning: <x> of <tounit> is never read [unread-element]\n"},
  };
  WriteConversions(kConversions);
  for (const Case& each : cases) {
    WriteAssociations(each.text);
    EXPECT_EQ(Findings(), each.findings) << each.text;
  }
}

TEST_F(CheckFiles, JudgesAssociationsWithoutAConversionFile) {
  WriteAssociations("<unitassoc id='A' tounit='B'/>");
  EXPECT_EQ(Findings(),
            "./UNIT_CONVERSIONS.xml:1:1: error: the conversion file is missing or empty "
            "[missing-file]\n");
}

TEST_F(CheckFiles, FollowsAsManyIncludesAsTheLibraryDoes) {
  WriteConversions(kConversions);
  folder.Write("more.xml", "<unit_associations/>");
  WriteAssociations(Includes(998));
  EXPECT_EQ(Findings(), "");
  WriteAssociations(Includes(999));
  EXPECT_NE(Findings().find(": more than 1000 files in one load [not-loaded]\n"),
            std::string::npos);
}

TEST_F(CheckFiles, NamesFilesAsUrisInSarif) {
  folder.Write("a b/UNIT_CONVERSIONS.xml", "<conversions/>");
  const nlohmann::json sarif =
      nlohmann::json::parse(Run("check --format sarif --data '" + folder.Path("a b") + "'").output);
  const auto& place = sarif["runs"][0]["results"][0]["locations"][0]["physicalLocation"];
  EXPECT_EQ(place["artifactLocation"]["uri"],
            "file://" + folder.Path("a%20b") + "/UNIT_CONVERSIONS.xml");
}

TEST_F(CheckFiles, SaysNothingOfItsProgressWhereItIsQuick) {
  WriteConversions(kConversions);
  EXPECT_EQ(Terminal(), "0 errors and 0 warnings in 1 file\r\n");
}

TEST_F(CheckFiles, SaysWhatItDoesAndHowFarItIsWhereItTakesLong) {
  ExpectProgress("comparing ways there and back \\d+ %", [this](int size) {
    std::string text;
    for (int from = 0; from < size; ++from) {
      text += "<fromunit id='" + std::to_string(from) + "'>";
      for (int to = 0; to < size; ++to) {
        text += "<tounit id='" + std::to_string(to) + "'><conv to_float='val'/></tounit>";
      }
      text += "</fromunit>";
    }
    WriteConversions("<unit_conversions>" + text + "</unit_conversions>");
  });
  WriteConversions(kConversions);
  WriteAssociations(Includes(900));
  ExpectProgress("checking the associations[^ ]", [this](int size) {
    std::string text;
    for (int unit = 0; unit < 5 * size; ++unit) {
      text += "<unitassoc id='" + std::to_string(unit) + "' tounit='B'/>";
    }
    folder.Write("more.xml", "<unit_associations>" + text + "</unit_associations>");
  });
}

}  // namespace
