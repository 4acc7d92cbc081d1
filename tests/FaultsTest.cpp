// What the file system and the files themselves may do to a load. The calls of the C library are
// wrapped by the linker, so that any of them can fail.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "TempFolder.h"
#include "units/DataUnitToDisplayUnitConverter.h"
#include "units/UnitConverter.h"
#include "util/FileHandler.h"

namespace {

int callsLeft = 0;  // the call that takes this to 0 fails
std::function<void()> beforeRead;
std::function<void(const char*)> beforeOpen;

#ifndef __SANITIZE_THREAD__
thread_local int locksTaken = 0;
#endif

bool Fails() { return callsLeft > 0 && --callsLeft == 0; }

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's own names
extern "C" {

FILE* __real_fopen(const char* path, const char* mode);
std::size_t __real_fread(void* buffer, std::size_t size, std::size_t count, FILE* stream);
int __real_fseek(FILE* stream, long offset, int origin);
long __real_ftell(FILE* stream);

FILE* __wrap_fopen(const char* path, const char* mode) {
  if (beforeOpen) {
    beforeOpen(path);
  }
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

#ifndef __SANITIZE_THREAD__  // which has to see the locks itself
// Stands before the C library's for the shared libraries too.
int pthread_mutex_lock(pthread_mutex_t* mutex) {
  static const auto lock =
      reinterpret_cast<int (*)(pthread_mutex_t*)>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
  ++locksTaken;
  return lock(mutex);
}
#endif

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
    beforeOpen = nullptr;
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

TEST_F(Loads, CannotTellTheSizeOfAFileWithAnyOfItsCallsFailing) {
  util::FileHandler file(conversions.c_str(), "rb");
  for (int call = 1; call <= 4; ++call) {
    callsLeft = call;
    EXPECT_EQ(file.fileSize(), 0U) << call;
  }
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

#ifndef __SANITIZE_THREAD__
TEST_F(Loads, TakeNoLock) {
  ExpectThatBothLoad();  // the C++ library makes its locale's parts under a lock, once
  locksTaken = 0;
  ExpectThatBothLoad();
  ASSERT_EQ(locksTaken, 1) << "that of the expression";
  EXPECT_TRUE(LoadConversions(conversions));
  EXPECT_TRUE(LoadAssociations(associations));
  EXPECT_EQ(locksTaken, 1);
}
#endif

TEST_F(Loads, OpenAndReadAFileOnceAlsoWhenADefinitionLacksItsIdentifier) {
  const std::string file = folder.Write("file.xml",
                                        "<unit_conversions><fromunit/><fromunit id='A'>"
                                        "<tounit id='B'><conv to_float='val + 1'/></tounit>"
                                        "</fromunit></unit_conversions>");
  int reads = 0;
  beforeRead = [&] {
    ++reads;
    std::filesystem::remove(file);
  };
  EXPECT_TRUE(LoadConversions(file));
  EXPECT_EQ(error, file + ":1:19: <fromunit> lacks the tag \"id\"\n");
  EXPECT_EQ(reads, 1);
}

TEST_F(Loads, FailOnAFileThatIsCutWhileItIsRead) {
  const std::string file = folder.Write("file.xml", std::string(100000, ' '));
  beforeRead = [&] { std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2); };
  ExpectSilentFailure(file, "cut");
}

std::string Repeated(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

std::string Nested(int levels, const std::string& content = "") {
  return Repeated(levels, "<a>") + content + Repeated(levels, "</a>");
}

std::string WithAttributes(int count) {
  std::string text = "<a";
  for (int i = 0; i < count; ++i) {
    text += " a" + std::to_string(i) + "='>'";
  }
  return text + "/>";
}

TEST_F(Loads, RefuseAFileWithOneLineThatTellsThePlace) {
  const std::string tooDeep = ": more than 64 levels of elements";
  // Three characters in UTF-8, else nine.
  const std::string accent = "<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80" + Nested(64);
  for (const auto& [text, message] : std::vector<std::pair<std::string, std::string>>{
           {Nested(100000), ":1:193" + tooDeep},
           {"\r\r\n\n\r \t" + Nested(64, "\n \t<b/>"), ":5:5" + tooDeep},
           {"<b/>" + Nested(65), ":1:197" + tooDeep},
           {"<a b='&#65;'>&#x4A;" + Nested(64), ":1:209" + tooDeep},
           {"<?xml?>" + Repeated(65, "<a>\xE0</a>"), ":1:392" + tooDeep},  // the byte takes "</"
           {accent, ":1:202" + tooDeep},
           {"\xEF\xBB\xBF" + accent, ":1:196" + tooDeep},
           {"<?xml version='1.0'?>\n" + accent, ":2:196" + tooDeep},
           {"<?xml version='1.0' encoding='utf-8'?>\n" + accent, ":2:196" + tooDeep},
           {"<?xml version='1.0' encoding='ISO-8859-1'?>\n" + accent, ":2:202" + tooDeep},
           {"<a>\n" + WithAttributes(65), ":2:1: more than 64 attributes in one element"},
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
           std::string("<?xml version='1.0' encoding='ISO-8859-1'?>") +
               Nested(1, Repeated(70, "<a b=1/><a>\xE0</a>")),
       }) {
    EXPECT_TRUE(LoadConversions(folder.Write("accepted.xml", text))) << text;
    EXPECT_TRUE(LoadAssociations(folder.Path("accepted.xml"))) << text;
  }
  EXPECT_EQ(error, "");
}

TEST_F(Loads, DeliverWhatStoodBeforeThePlaceWhereTheParserGivesUp) {
  const std::string sound = "<fromunit id='A'><tounit id='B'><conv to_float='val + 1'/></tounit>";
  for (const std::string& end : {
           std::string("</fromunix>"),             // another element's end
           std::string("<a b='1' b='2'>"),         // an attribute given twice
           std::string("<a b=1'2>"),               // a quote in a bare value
           std::string("<a>&#1F;"),                // no decimal digit
           std::string("<a>&#x1G;"),               // no hexadecimal digit
           std::string("<a b='1'") + '\0' + "'>",  // the text's end
       }) {
    units::UnitConverter fresh;
    EXPECT_TRUE(fresh.LoadFromXML(
        folder.Write(
            "broken.xml",
            std::string("<unit_conversions>").append(sound).append(end).append(Nested(70))),
        error));
    double value = 1;
    fresh.ConvertUnit("A", "B", value);
    EXPECT_EQ(value, 2) << end;
  }
}

TEST_F(Loads, AUtf8CharacterThatIsCutOffEndsTheText) {
  using namespace std::string_literals;
  for (const std::string& lead : {"\xC3"s, "\xE0"s, "\xF0"s, "\xF0\0xx"s + Nested(70)}) {
    EXPECT_TRUE(LoadConversions(folder.Write("cut.xml", "<?xml?><a b='" + lead)));
    EXPECT_TRUE(LoadAssociations(folder.Write("cut.xml", "<?xml?><a>" + lead)));
  }
}

TEST_F(Loads, OfAssociationsReadAThousandFilesAndNoMore) {
  const std::string includes = Repeated(999, "<include>associations.xml</include>");
  const std::string file = folder.Write("f.xml", "<unit_associations>" + includes);
  EXPECT_TRUE(LoadAssociations(file));
  EXPECT_EQ(error, "");
  folder.Write("f.xml", "<unit_associations>" + includes + "<include>associations.xml</include>");
  EXPECT_FALSE(LoadAssociations(file));
  EXPECT_EQ(error, file + ":1:34985: more than 1000 files in one load\n");
}

TEST_F(Loads, OfTheSystemsOpenTheFourFilesInTheirOrderAndNoOther) {
  std::vector<std::string> expected;
  for (const char* suffix : {"STD", "STD_UK", "METRIC", "GREEK"}) {
    expected.push_back(
        folder.Write(std::string("CAR_UNIT_ASSOCIATIONS_") + suffix + ".xml", "<r/>"));
  }
  folder.Write("CAR_UNIT_ASSOCIATIONS_METRIC_TUNER.xml", "<r/>");
  folder.Write("_METRIC_TUNER.xml", "<r/>");
  std::vector<std::string> opened;
  beforeOpen = [&](const char* path) { opened.emplace_back(path); };
  EXPECT_TRUE(display.ReadAndParseXMLAssociations("CAR", error));
  EXPECT_TRUE(display.LoadTunerMetricUnits(folder.Path("CAR_UNIT_ASSOCIATIONS"), error));
  EXPECT_EQ(opened, expected);
}

}  // namespace
