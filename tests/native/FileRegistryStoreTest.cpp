#include <gtest/gtest.h>

#include <memory>

#include "native/codepages/CodePages.h"
#include "native/settings/FileRegistryStore.h"
#include "platform/CodePage.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

namespace quorvane::test {

using native::FileRegistryStore;

class FileRegistryStoreTest : public ::testing::Test {
 protected:
  static constexpr RegistryKey kUser = FileRegistryStore::kCurrentUser;
  static constexpr RegistryKey kMachine = kUser + 1;
  static constexpr std::uint32_t kRead = 0x20019;
  static constexpr std::uint32_t kWrite = 0x20006;

  RegistryKey Create(std::string_view name, RegistryKey root = kUser) {
    RegistryKey key = 0;
    EXPECT_EQ(store.CreateKey(root, name, 0, kWrite, true, key), 0) << name;
    return key;
  }
  std::int32_t Open(std::string_view name, RegistryKey root = kUser) {
    RegistryKey key = 0;
    const std::int32_t status = store.OpenKey(root, name, kRead, key);
    return status == 0 ? store.CloseKey(key) : status;
  }
  /// "type:bytes" as a program finds it that starts now, or its status.
  std::string Stored(std::string_view name, std::string_view value, RegistryKey root = kUser) {
    FileRegistryStore fresh(path, *page);
    RegistryKey key = 0;
    std::int32_t status = fresh.OpenKey(root, name, kRead, key);
    std::int32_t type = 0;
    std::string bytes(100, '\0');
    std::size_t size = bytes.size();
    if (status == 0) status = fresh.QueryValue(key, value, type, bytes.data(), size);
    return status == 0 ? std::to_string(type) + ":" + bytes.substr(0, size) : std::to_string(status);
  }

  TempFolder folder;
  const std::string path = folder / "deep/registry";
  std::unique_ptr<CodePage> page = native::NewCodePage("936");
  FileRegistryStore store{path, *page};
};

TEST_F(FileRegistryStoreTest, ValuesOfAnyBytesLast) {
  const std::vector<Row> rows = Rows("native/FileRegistryStore.rows", "Values");
  const auto root = [](const Row& row) { return row.Bytes(0) == "user" ? kUser : kMachine; };
  for (const Row& row : rows) {
    const RegistryKey key = Create(row.Bytes(1), root(row));
    EXPECT_EQ(store.SetValue(key, row.Bytes(2), 1, "before"), 0);
    EXPECT_EQ(store.SetValue(key, row.Bytes(2), row.Number(3), row.Bytes(4)), 0);
    EXPECT_EQ(store.CloseKey(key), 0);
  }
  for (const Row& row : rows) {
    EXPECT_EQ(Stored(row.Bytes(1), row.Bytes(2), root(row)), row.Bytes(3) + ":" + row.Bytes(4)) << row.Where();
  }
  EXPECT_EQ(Stored("SOFTWARE\\quorvane", "tEXT"), std::string("1:caf\xE9\0", 7));
  EXPECT_EQ(Stored("Software", "Text"), "2");
  EXPECT_EQ(Stored("\x81\x61", ""), "2") << "made with the keys below it, without a value";
}

TEST_F(FileRegistryStoreTest, StatusesOfWhatCannotBeDone) {
  EXPECT_EQ(Open("A"), 2) << "no file yet";
  const RegistryKey key = Create("A\\B");
  EXPECT_EQ(store.SetValue(key, "v", 1, "12345"), 0);
  EXPECT_EQ(store.DeleteValue(key, "w"), 2);
  EXPECT_EQ(store.DeleteKey(kUser, "A"), 5) << "there is a key below";
  EXPECT_EQ(store.DeleteKey(kUser, ""), 2);
  for (const char* name : {"\\A", "A\\", "A\\\\B", "\\"}) EXPECT_EQ(Open(name), 161) << name;
  EXPECT_EQ(Open("A", 77), 6);
  EXPECT_EQ(Open("", kUser), 0);

  RegistryKey reading = 0;
  EXPECT_EQ(store.OpenKey(kUser, "A\\B", kRead, reading), 0);
  std::int32_t type = 0;
  char data[5];
  std::size_t size = 4;
  EXPECT_EQ(store.QueryValue(reading, "v", type, data, size), 234);
  EXPECT_EQ(size, 5U);
  EXPECT_EQ(store.QueryValue(reading, "v", type, data, size), 0);
  EXPECT_EQ(std::string(data, size), "12345");
  EXPECT_EQ(store.QueryValue(key, "v", type, data, size), 5) << "opened for writing alone";
  EXPECT_EQ(store.SetValue(reading, "v", 1, "no"), 5);
  EXPECT_EQ(store.DeleteValue(reading, "v"), 5);

  EXPECT_EQ(store.DeleteKey(kUser, "A\\B"), 0);
  EXPECT_EQ(store.SetValue(key, "v", 1, "late"), 2) << "of a key that is gone";
  EXPECT_EQ(store.DeleteKey(kUser, "a"), 0);
  EXPECT_EQ(store.CloseKey(key), 0);
  EXPECT_EQ(store.CloseKey(key), 6);
  EXPECT_EQ(store.CloseKey(kUser), 0);
  EXPECT_EQ(Open("A"), 2);
}

TEST_F(FileRegistryStoreTest, ADamagedFileIsLeftAsItIs) {
  const RegistryKey key = Create("A");
  for (const char* value : {"x:00", "1:0", "1:0g", "1", "1:+1", ":00", ""}) {
    folder.Write("deep/registry", "[HKEY_CURRENT_USER/A]\nv=" + std::string(value) + "\n");
    EXPECT_EQ(Stored("A", "v"), "1015") << value;
  }
  const std::string damaged = "[HKEY_CURRENT_USER/A]\nno value\n";
  folder.Write("deep/registry", damaged);
  EXPECT_EQ(Open("A"), 1015);
  EXPECT_EQ(store.SetValue(key, "v", 1, "x"), 1015);
  EXPECT_EQ(store.DeleteKey(kUser, "A"), 1015);
  EXPECT_EQ(folder.Read("deep/registry"), damaged);

  FileRegistryStore inTheWay(folder / "deep/registry/file", *page);
  RegistryKey none = -1;
  EXPECT_EQ(inTheWay.CreateKey(kUser, "A", 0, kWrite, true, none), 5) << "its folder is a file";
  EXPECT_EQ(none, -1);
}

}  // namespace quorvane::test
