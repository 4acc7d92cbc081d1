#include <gtest/gtest.h>
#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

#include "TempFolder.h"
#include "util/DataHash.h"
#include "util/FileHandler.h"
#include "util/enum_map.h"

namespace {

using Store = util::DataHash<std::string, std::shared_ptr<int>>;

const std::string kNulA("a\0x", 3);
const std::string kNulB("a\0y", 3);

template <typename Action>
std::string MessageOf(Action action) {
  try {
    action();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "nothing thrown";
}

void Fill(Store& store, int count) {
  for (int i = 0; i < count; ++i) {
    store.addData(std::to_string(i), std::make_shared<int>(i));
  }
}

TEST(DataHash, HashesTheBytesBeforeTheFirstNulAsUnsignedIn32Bits) {
  const __gnu_cxx::hash<std::string> hash;
  EXPECT_EQ(hash(""), 0U);
  EXPECT_EQ(hash("a"), 97U);
  EXPECT_EQ(hash(kNulA), 97U);
  EXPECT_EQ(hash("\xB0"
                 "F"),
            950U);
  EXPECT_EQ(hash("TEMP_CEL"), 7945221U);
  EXPECT_EQ(hash("EFFICIENCY_L_PER_100KM"), 744888490U);
}

TEST(DataHash, AddingAPresentKeyThrowsAndKeepsTheFirstValue) {
  Store store;
  const auto first = std::make_shared<int>(1);
  store.addData("", first);
  EXPECT_EQ(MessageOf([&] { store.addData("", std::make_shared<int>(2)); }),
            "key already exists\n");
  EXPECT_EQ(store.findData(""), first);
  EXPECT_EQ(duplicate_key_error("k").what(), std::string("key already exists\nk"));
}

TEST(DataHash, FindingAnAbsentKeyThrows) {
  Store store;
  EXPECT_EQ(MessageOf([&] { store.findData("a"); }), "key not found\n");
  EXPECT_EQ(MessageOf([&] { std::as_const(store).findData("a"); }), "key not found\n");
  EXPECT_THROW(store.findData("a"), key_notfound_error);
  EXPECT_EQ(key_notfound_error("k").what(), std::string("key not found\nk"));
}

TEST(DataHash, SettingReplacesAndReleasesTheOldValue) {
  Store store;
  std::weak_ptr<int> old;
  {
    const auto value = std::make_shared<int>(1);
    old = value;
    store.setData("a", value);
  }
  EXPECT_FALSE(old.expired());
  store.setData("a", nullptr);
  EXPECT_TRUE(old.expired());
  EXPECT_TRUE(store.dataExists("a"));
  EXPECT_EQ(store.findData("a"), nullptr);
}

TEST(DataHash, RemovingTellsHowManyEntriesWent) {
  Store store;
  Fill(store, 1);
  EXPECT_EQ(store.removeData("0"), 1U);
  EXPECT_EQ(store.removeData("0"), 0U);
  EXPECT_FALSE(store.dataExists("0"));
}

TEST(DataHash, KeysThatAgreeUpToANulAreTwoEntries) {
  Store store;
  store.addData(kNulA, std::make_shared<int>(1));
  store.addData(kNulB, std::make_shared<int>(2));
  EXPECT_EQ(*store.findData(kNulA), 1);
  EXPECT_EQ(*store.findData(kNulB), 2);
}

TEST(DataHash, GrowsAtThe194thInsertionAttemptUnlessItThrows) {
  Store store;
  EXPECT_EQ(store.bucket_count(), 193U);
  Fill(store, 193);
  EXPECT_THROW(store.addData("0", nullptr), duplicate_key_error);
  EXPECT_EQ(store.bucket_count(), 193U);
  const std::shared_ptr<int>& kept = store.findData("7");
  store.setData("0", nullptr);
  EXPECT_EQ(store.bucket_count(), 389U);
  EXPECT_EQ(store.size(), 193U);
  EXPECT_EQ(&store.findData("7"), &kept);
  store.removeData("0");
  EXPECT_EQ(store.bucket_count(), 389U);
}

TEST(DataHash, AnOverriddenDataExistsDecidesWhatIsADuplicate) {
  struct Answering : Store {
    bool dataExists(const std::string&) const override { return answer; }
    bool answer = false;
  } store;
  store.addData("a", std::make_shared<int>(1));
  store.addData("a", std::make_shared<int>(2));
  EXPECT_EQ(*store.findData("a"), 1);
  store.answer = true;
  EXPECT_THROW(store.addData("b", nullptr), duplicate_key_error);
}

TEST(FileHandler, ReadsAWholeFileOnlyFromItsStart) {
  const TempFolder folder;
  util::FileHandler file(folder.Write("f", "0123456789abc").c_str(), "rb");
  std::string text = "longer than the file, so it must shrink";
  EXPECT_EQ(file.read(text), 1U);
  EXPECT_EQ(text, "0123456789abc");

  const FILE* stream = file.open(folder.Path("f").c_str(), "rb");
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(static_cast<FILE*>(file), stream);
  char front[10];
  EXPECT_EQ(file.read(front, 5, 2), 2U);
  EXPECT_EQ(file.fileSize(), 13U);
  std::vector<unsigned char> bytes;
  EXPECT_EQ(file.read(bytes), 0U);
  EXPECT_EQ(bytes, (std::vector<unsigned char>{'a', 'b', 'c', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(file.read(nullptr, 1, 1), 0U);
}

TEST(FileHandler, EmptyAndUnsizedFilesReadAsNothing) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("fifo").c_str(), 0600), 0);
  folder.Write("empty", "");
  for (const char* name : {"empty", "fifo"}) {
    util::FileHandler file(folder.Path(name).c_str(), "r+b");
    ASSERT_TRUE(file) << name;
    std::string text = "before";
    EXPECT_EQ(file.read(text), 0U) << name;
    EXPECT_EQ(text, "") << name;
  }
}

TEST(FileHandler, AClosedHandleDoesNothing) {
  util::FileHandler file;
  EXPECT_FALSE(file);
  EXPECT_TRUE(!file);
  std::string text = "kept";
  EXPECT_EQ(file.read(text), 0U);
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(file.read(text.data(), 1, 1), 0U);
  EXPECT_EQ(file.write(text), 0U);
  EXPECT_EQ(file.fileSize(), 0U);
  file.close();
}

TEST(FileHandler, AFailedOpenClosesWhatWasOpen) {
  const TempFolder folder;
  util::FileHandler file(folder.Write("f", "text").c_str(), "rb");
  ASSERT_TRUE(file);
  EXPECT_EQ(file.open(folder.Path("missing").c_str(), "rb"), nullptr);
  EXPECT_FALSE(file);
  EXPECT_EQ(file.open(folder.Path().c_str(), "rb"), nullptr) << "a directory is no file";
  EXPECT_FALSE(file);
}

TEST(FileHandler, WritesItsBytesAsOneItem) {
  const TempFolder folder;
  util::FileHandler file(folder.Path("f").c_str(), "w+b");
  EXPECT_EQ(file.write(std::string("text")), 1U);
  EXPECT_EQ(file.write(std::vector<unsigned char>{0xB0}), 1U);
  EXPECT_EQ(file.write(std::string()), 0U);
  EXPECT_EQ(file.write(std::vector<unsigned char>()), 0U);
  EXPECT_EQ(file.write(nullptr, 1), 0U);
  EXPECT_EQ(file.fileSize(), 5U);

  file.open(folder.Path("f").c_str(), "rb");
  EXPECT_EQ(file.write(std::string("text")), 0U) << "a stream for reading takes no bytes";
}

TEST(FileHandler, WholeReadsAndWritesGoThroughTheVirtualTable) {
  struct Counting : util::FileHandler {
    using util::FileHandler::FileHandler;
    using util::FileHandler::read;
    using util::FileHandler::write;
    std::size_t fileSize() override { return 3; }
    std::size_t read(void* buffer, unsigned size, unsigned count) override {
      *static_cast<char*>(buffer) = 'r';
      return 100 * size + count;
    }
    std::size_t write(const void*, unsigned size) override { return 200 + size; }
  };
  const TempFolder folder;
  Counting file(folder.Write("f", "other").c_str(), "rb");
  std::string text;
  EXPECT_EQ(file.read(text), 301U);
  EXPECT_EQ(text, std::string("r\0\0", 3));
  std::vector<unsigned char> bytes;
  EXPECT_EQ(file.read(bytes), 301U);
  EXPECT_EQ(file.write(text), 203U);
  EXPECT_EQ(file.write(bytes), 203U);
}

TEST(EnumMap, FindsTheLowestValueOfANameAndListsInAscendingOrder) {
  const util::enum_map<int, std::string> names{{7, "same"}, {-1, "first"}, {3, "same"}};
  EXPECT_EQ(names.find("same"), 3);
  EXPECT_EQ(names.find("Same"), std::nullopt);
  EXPECT_EQ(names.begin()->first, -1);
}

}  // namespace
