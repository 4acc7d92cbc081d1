// What the file system and the files themselves may do to a load. The calls of the C library are
// wrapped by the linker, so that any of them can fail.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "TempFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitConverter.h"

namespace {

int callsLeft = 0;  // the call that takes this to 0 fails
std::function<void()> beforeRead;

bool Fails() { return callsLeft > 0 && --callsLeft == 0; }

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's own names
extern "C" {

FILE* __real_fopen(const char* path, const char* mode);
std::size_t __real_fread(void* buffer, std::size_t size, std::size_t count, FILE* stream);
int __real_fseek(FILE* stream, long offset, int origin);
long __real_ftell(FILE* stream);

FILE* __wrap_fopen(const char* path, const char* mode) {
  return Fails() ? nullptr : __real_fopen(path, mode);
}

std::size_t __wrap_fread(void* buffer, std::size_t size, std::size_t count, FILE* stream) {
  if (beforeRead) {
    beforeRead();
  }
  if (Fails()) {
    __real_fread(buffer, size / 2, count, stream);  // the error comes midway
    return 0;
  }
  return __real_fread(buffer, size, count, stream);
}

int __wrap_fseek(FILE* stream, long offset, int origin) {
  return Fails() ? -1 : __real_fseek(stream, offset, origin);
}

long __wrap_ftell(FILE* stream) { return Fails() ? -1 : __real_ftell(stream); }

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)

namespace {

// Both kinds of load, of one file each or of one path for both.
class Loads : public testing::Test {
 protected:
  Loads() { display.SetXMLFilePath(folder.Path()); }
  ~Loads() override {
    callsLeft = 0;
    beforeRead = nullptr;
  }

  bool LoadConversions(const std::string& path) { return converter.LoadFromXML(path, error); }
  bool LoadAssociations(const std::string& path) {
    return display.RecursiveLoad(path, units::UNIT_TYPE_STD, error);
  }

  void ExpectSilentFailure(const std::string& path, const std::string& what) {
    EXPECT_FALSE(LoadConversions(path)) << what;
    EXPECT_FALSE(LoadAssociations(path)) << what;
    EXPECT_EQ(error, "") << what;
  }

  void ExpectRefusal(const std::string& path, const std::string& message) {
    EXPECT_FALSE(LoadConversions(path));
    EXPECT_EQ(error, path + message + '\n');
    error.clear();
    EXPECT_FALSE(LoadAssociations(path));
    EXPECT_EQ(error, path + message + '\n');
    error.clear();
  }

  void ExpectThatBothLoad() {
    EXPECT_TRUE(LoadConversions(conversions));
    EXPECT_TRUE(LoadAssociations(associations));
    double value = 1;
    converter.ConvertUnit("A", "B", value);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(display.GetActiveLabelForUnit("A"), "B");
    EXPECT_EQ(error, "");
  }

  std::string WriteIncludes(const std::string& name, const std::string& included, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      text += "<include>" + included + "</include>";
    }
    return folder.Write(name, "<unit_associations>" + text + "</unit_associations>");
  }

  TempFolder folder;
  units::UnitConverter converter;
  units::DataUnitToDisplayUnitConverter display;
  std::string error;
  const std::string conversions =
      folder.Write("conversions.xml",
                   "<unit_conversions><fromunit id='A'><tounit id='B'><conv to_float='val + 1'/>"
                   "</tounit></fromunit></unit_conversions>");
  const std::string associations = folder.Write(
      "associations.xml", "<unit_associations><unitassoc id='A' tounit='B'/></unit_associations>");
};

TEST_F(Loads, FailSilentlyWithAnyCallOfTheCLibraryAndMayBeRepeated) {
  int failed = 0;
  for (int call = 1;; ++call) {
    callsLeft = call;
    const bool loaded = LoadConversions(conversions);
    if (callsLeft > 0) {
      EXPECT_TRUE(loaded);
      break;
    }
    EXPECT_FALSE(loaded) << call;
    callsLeft = call;
    EXPECT_FALSE(LoadAssociations(associations)) << call;
    EXPECT_EQ(error, "");
    ++failed;
  }
  EXPECT_EQ(failed, 6) << "open, position, to the end, size, back, read";
  callsLeft = 0;
  ExpectThatBothLoad();
}

TEST_F(Loads, ReadRegularFilesOnly) {
  ASSERT_EQ(mkfifo(folder.Path("fifo").c_str(), 0600), 0);
  std::filesystem::create_symlink("nowhere", folder.Path("dangling"));
  folder.Write("empty", "");
  for (const std::string& path :
       {folder.Path("fifo"), folder.Path("dangling"), folder.Path("empty"), folder.Path(),
        folder.Path("missing"), std::string("/dev/zero"), std::string("/dev/null"), std::string(),
        std::string("/proc/self/status"), std::string(100000, 'x')}) {
    ExpectSilentFailure(path, path);
  }
  ExpectThatBothLoad();
}

TEST_F(Loads, FailSilentlyOnAFileThatMustNotBeRead) {
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
  std::filesystem::permissions(conversions, std::filesystem::perms::none);
  const uid_t user = geteuid();
  constexpr uid_t kNobody = 65534;
  ASSERT_EQ(user == 0 ? seteuid(kNobody) : 0, 0);
  ExpectSilentFailure(conversions, "unreadable");
  ASSERT_EQ(seteuid(user), 0);
  std::filesystem::permissions(conversions, std::filesystem::perms::owner_all);
  ExpectThatBothLoad();
}

TEST_F(Loads, FailOnAFileThatIsCutWhileItIsRead) {
  const std::string file = folder.Write("file.xml", std::string(100000, ' '));
  beforeRead = [&] { std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2); };
  ExpectSilentFailure(file, "cut");
}

TEST_F(Loads, TakeTheFileThatTheyOpenedWhenItIsReplacedOrGrows) {
  beforeRead = [&] {
    std::filesystem::remove(associations);
    folder.Write("associations.xml", std::string(5000, ' '));
  };
  EXPECT_TRUE(LoadAssociations(associations));
  EXPECT_EQ(display.GetActiveLabelForUnit("A"), "B");
  beforeRead = [&] { std::filesystem::resize_file(conversions, 5000); };
  EXPECT_TRUE(LoadConversions(conversions));
}

TEST_F(Loads, TellWhatIsWrongAlsoWhenTheFileIsGoneMeanwhile) {
  const std::string file =
      folder.Write("file.xml", "<unit_conversions><fromunit/></unit_conversions>");
  beforeRead = [&] { std::filesystem::remove(file); };
  EXPECT_TRUE(LoadConversions(file));
  EXPECT_EQ(error, file + ":1:1: <fromunit> lacks the tag \"id\"\n");
}

std::string Nested(int levels, const std::string& content = "") {
  std::string text;
  for (int i = 0; i < levels; ++i) {
    text += "<a>";
  }
  text += content;
  for (int i = 0; i < levels; ++i) {
    text += "</a>";
  }
  return text;
}

std::string WithAttributes(int count) {
  std::string text = "<a";
  for (int i = 0; i < count; ++i) {
    text += " a" + std::to_string(i) + "='>'";
  }
  return text + "/>";
}

TEST_F(Loads, RefuseAFileWithOneLineThatTellsThePlace) {
  struct Case {
    std::string text;
    const char* message;
  };
  for (const auto& [text, message] : {
           Case{Nested(65), ":1:193: more than 64 levels of elements"},
           Case{Nested(100000), ":1:193: more than 64 levels of elements"},
           Case{"\r\n\n\r \t" + Nested(64, "\n \t<b/>"), ":5:5: more than 64 levels of elements"},
           Case{"<a>\n" + WithAttributes(65), ":2:1: more than 64 attributes in one element"},
       }) {
    ExpectRefusal(folder.Write("refused.xml", text), message);
  }
  const std::string file = folder.Write("refused.xml", Nested(64));
  std::filesystem::resize_file(file, (64 << 20) + 1);
  ExpectRefusal(file, ":1:1: larger than 64 MiB");
  std::filesystem::resize_file(file, 64 << 20);
  EXPECT_TRUE(LoadConversions(file)) << "behind its first NUL a file says nothing";
  ExpectThatBothLoad();
}

TEST_F(Loads, AcceptWhatOnlyLooksNestedOrIsAtTheLimit) {
  for (const std::string& text : {
           Nested(64, "<!--" + Nested(99) + "-->"),
           Nested(64, "<![CDATA[" + Nested(99) + "]]>"),
           Nested(63, "<a b='" + Nested(99) + "' c=\"" + Nested(99) + "\"/>"),
           Nested(64, "<? >") + Nested(64) + WithAttributes(64),
           std::string("<?xml version='1.0' encoding='ISO-8859-1'?>") + Nested(64, "\xE0"),
       }) {
    EXPECT_TRUE(LoadConversions(folder.Write("accepted.xml", text))) << text;
    EXPECT_TRUE(LoadAssociations(folder.Path("accepted.xml"))) << text;
  }
  EXPECT_EQ(error, "");
}

TEST_F(Loads, AUtf8CharacterThatIsCutOffEndsTheText) {
  for (const char* lead : {"\xC3", "\xE0", "\xF0"}) {
    EXPECT_TRUE(LoadConversions(folder.Write("cut.xml", std::string("<?xml?><a b='") + lead)));
    EXPECT_TRUE(LoadAssociations(folder.Write("cut.xml", std::string("<?xml?><a>") + lead)));
  }
}

TEST_F(Loads, OfAssociationsReadAThousandFilesAndNoMore) {
  EXPECT_TRUE(LoadAssociations(WriteIncludes("most.xml", "associations.xml", 999)));
  EXPECT_EQ(error, "");
  const std::string many = WriteIncludes("many.xml", "associations.xml", 1000);
  EXPECT_FALSE(LoadAssociations(many));
  EXPECT_EQ(error, many + ":1:34985: more than 1000 files in one load\n");
}

TEST_F(Loads, OfIncludesThatDoubleWithEveryLinkEndInOneLine) {
  for (int link = 0; link < 40; ++link) {
    WriteIncludes("d" + std::to_string(link), "d" + std::to_string(link + 1), 2);
  }
  folder.Write("d40", "<unit_associations/>");
  EXPECT_FALSE(LoadAssociations(folder.Path("d0")));
  EXPECT_NE(error.find(": more than 1000 files in one load\n"), std::string::npos) << error;
  EXPECT_EQ(error.find('\n'), error.size() - 1);
}

}  // namespace
