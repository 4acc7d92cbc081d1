#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "TempFolder.h"
#include "util/DataHash.h"
#include "util/FileHandler.h"

namespace {

using Store = util::DataHash<std::string, std::shared_ptr<int>>;

TEST(DataHash, HashesTheBytesBeforeTheFirstNulAsUnsignedIn32Bits) {
  const __gnu_cxx::hash<std::string> hash;
  EXPECT_EQ(hash(std::string("a\0x", 3)), 97U);
  EXPECT_EQ(hash("\xB0G"), 951U);
  EXPECT_EQ(hash("EFFICIENCY_L_PER_100KM"), 744888490U);
}

TEST(DataHash, HoldsAKeyOnceAndThrowsForOneThatIsThereTwiceOrNotAtAll) {
  const std::string key("a\0x", 3);
  const auto first = std::make_shared<int>(1);
  Store store;
  store.addData(key, first);
  EXPECT_THROW(store.addData(key, nullptr), duplicate_key_error);
  EXPECT_EQ(store.findData(key), first);
  store.setData(key, nullptr);
  EXPECT_EQ(first.use_count(), 1) << "the store lets go of what is replaced";
  EXPECT_FALSE(store.dataExists(std::string("a\0y", 3)));
  EXPECT_EQ(store.removeData(key), 1U);
  EXPECT_EQ(store.removeData(key), 0U);
  EXPECT_THROW(store.findData(key), key_notfound_error);
  EXPECT_STREQ(duplicate_key_error("k").what(), "key already exists\nk");
  EXPECT_STREQ(key_notfound_error("k").what(), "key not found\nk");
}

TEST(DataHash, GrowsAtThe194thInsertionAttemptUnlessItThrows) {
  Store store;
  for (int i = 0; i < 193; ++i) {
    store.addData(std::to_string(i), nullptr);
  }
  EXPECT_THROW(store.addData("0", nullptr), duplicate_key_error);
  EXPECT_EQ(store.bucket_count(), 193U);
  const std::shared_ptr<int>& kept = store.findData("7");
  store.setData("0", nullptr);
  EXPECT_EQ(store.bucket_count(), 389U);
  EXPECT_EQ(&store.findData("7"), &kept);
}

TEST(DataHash, AnOverriddenDataExistsDecidesWhatIsADuplicate) {
  struct Answering : Store {
    bool dataExists(const std::string&) const override { return answer; }
    bool answer = false;
  } store;
  const auto first = std::make_shared<int>(1);
  store.addData("a", first);
  store.addData("a", nullptr);
  EXPECT_EQ(store.findData("a"), first);
  store.answer = true;
  EXPECT_THROW(store.addData("b", nullptr), duplicate_key_error);
}

TEST(FileHandler, WritesAndReadsItsBytesAsOneItemFromWhereItStands) {
  const TempFolder folder;
  util::FileHandler file(folder.Path("f").c_str(), "w+b");
  EXPECT_EQ(file.write(std::string("text")), 1U);
  EXPECT_EQ(file.write(std::vector<unsigned char>{0xB0}), 1U);
  EXPECT_EQ(file.write(nullptr, 1), 0U);
  std::rewind(file);
  EXPECT_EQ(file.read(nullptr, 1, 1), 0U);
  std::string text = "longer";
  EXPECT_EQ(file.read(text), 1U);
  EXPECT_EQ(text, "text\xB0");
  std::rewind(file);
  EXPECT_EQ(file.read(text.data(), 1, 2), 2U);
  std::vector<unsigned char> bytes(9, '.');
  EXPECT_EQ(file.read(bytes), 0U);
  EXPECT_EQ(bytes, (std::vector<unsigned char>{'x', 't', 0xB0, '.', '.'}));
}

TEST(FileHandler, ClosesItsFileBeforeItOpensAnotherAndWhenItDies) {
  const TempFolder folder;
  const std::string path = folder.Path("f");
  util::FileHandler file(path.c_str(), "wb");
  file.write(std::string("text"));
  EXPECT_NE(file.open(path.c_str(), "wb"), nullptr);
  EXPECT_EQ(file.fileSize(), 0U);
  file.write(std::string("text"));
  EXPECT_EQ(file.open(folder.Path("missing").c_str(), "rb"), nullptr);
  EXPECT_EQ(std::filesystem::file_size(path), 4U);
  util::FileHandler(path.c_str(), "ab").write(std::string("text"));
  EXPECT_EQ(std::filesystem::file_size(path), 8U);
}

TEST(FileHandler, WithoutAStreamOrASizeReadsNothing) {
  const TempFolder folder;
  util::FileHandler file(folder.Write("f", "text").c_str(), "rb");
  EXPECT_TRUE(file && static_cast<FILE*>(file) != nullptr);
  EXPECT_EQ(file.open(folder.Path().c_str(), "rb"), nullptr) << "a directory is no file";
  EXPECT_TRUE(!file && !static_cast<bool>(file));
  std::string text = "kept";
  EXPECT_EQ(file.read(text) + file.read(text.data(), 1, 1) + file.write(text) + file.fileSize(),
            0U);
  EXPECT_EQ(text, "kept");
  ASSERT_EQ(mkfifo(folder.Path("fifo").c_str(), 0600), 0);
  ASSERT_NE(file.open(folder.Path("fifo").c_str(), "r+b"), nullptr);
  EXPECT_EQ(file.read(text), 0U);
  EXPECT_EQ(text, "");
}

TEST(FileHandler, WholeReadsAndWritesGoThroughTheVirtualTable) {
  struct Counting : util::FileHandler {
    using util::FileHandler::FileHandler;
    using util::FileHandler::read;
    using util::FileHandler::write;
    std::size_t fileSize() override { return told; }
    std::size_t read(void*, unsigned size, unsigned count) override { return 100 * size + count; }
    std::size_t write(const void*, unsigned size) override { return 200 + size; }
    std::size_t told = 3;
  } file("/dev/null", "rb");
  std::string text;
  EXPECT_EQ(file.read(text), 301U);
  EXPECT_EQ(file.write(text), 203U);
  file.told = static_cast<std::size_t>(std::uint64_t{1} << 32);
  EXPECT_EQ(file.read(text), 1U);
  EXPECT_EQ(text, "") << "no read can name so many bytes";
}

}  // namespace
