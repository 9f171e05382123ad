#include <gtest/gtest.h>

#include "addin/core/ErrorManager.h"
#include "addin/settings/Registry.h"
#include "support/Rows.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

class RegistryTest : public ::testing::Test {
 protected:
  void Put(std::int32_t type, const std::string& bytes) {
    platform.registry.Keys.insert("Key");
    platform.registry.Values[{"Key", "v"}] = {type, bytes};
  }
  bool Get() { return registry.GetValue(1, u"Key", u"v", value, &number, &description); }
  bool Set(std::int32_t type, const Registry::Value& theValue) {
    return registry.SetValue(1, u"Key", u"v", type, theValue, &number, &description);
  }

  /// "#7" is a number, "(none)" no value.
  static Registry::Value ValueOf(const Row& row, std::size_t cell) {
    const std::string text = row.Bytes(cell);
    if (text == "(none)") return {};
    if (text.starts_with('#')) return std::stoi(text.substr(1));
    return row.Text(cell);
  }

  TestPlatform platform;
  Registry registry;
  Registry::Value value = u"before";
  std::int32_t number = -1;
  std::u16string description = u"before";
};

TEST_F(RegistryTest, ReadsByType) {
  for (const Row& row : Rows("settings/Registry.rows", "Read")) {
    Put(row.Number(0), row.Bytes(1));
    value = u"before";
    EXPECT_TRUE(Get());
    EXPECT_EQ(value, ValueOf(row, 2)) << row.Where();
    EXPECT_EQ(number, 0);
    EXPECT_EQ(description, u"");
  }
  for (const auto& [type, length] : {std::pair(1, 254), std::pair(2, 3000)}) {
    Put(type, std::string(static_cast<std::size_t>(length), 'x') + '\0');
    EXPECT_TRUE(Get());
    EXPECT_EQ(value, Registry::Value(std::u16string(static_cast<std::size_t>(length), u'x')));
  }
  EXPECT_EQ(platform.registry.LastAccess, 0x20019u);
  EXPECT_EQ(platform.registry.OpenKeys(), 0u);
}

TEST_F(RegistryTest, WritesByType) {
  for (const Row& row : Rows("settings/Registry.rows", "Written")) {
    EXPECT_TRUE(Set(row.Number(0), ValueOf(row, 1)));
    EXPECT_EQ((platform.registry.Values[{"Key", "v"}]), std::pair(row.Number(0), row.Bytes(2))) << row.Where();
  }
  EXPECT_EQ(platform.registry.LastAccess, 0x20006u);
  EXPECT_EQ(platform.registry.OpenKeys(), 0u);
}

TEST_F(RegistryTest, EachFailureIsToldAndNeverRaised) {
  const auto expect = [&](bool done, std::int32_t theNumber, const char16_t* text) {
    EXPECT_FALSE(done);
    EXPECT_EQ(number, theNumber);
    EXPECT_EQ(description, text);
    EXPECT_EQ(platform.registry.OpenKeys(), 0u) << "left open";
  };
  expect(Get(), kErrRegistry, u"Failed to get value from registry");
  Put(1, std::string(255, 'x') + '\0');
  expect(Get(), kErrRegistry, u"Failed to get value from registry");
  platform.registry.CloseStatus = 6;
  Put(4, "abcd");
  expect(Get(), kErrRegistry, u"Failed to get value from registry");
  EXPECT_EQ(value, Registry::Value(u"before"));
  expect(Set(4, 1), kErrRegistry, u"Failed to set registry value ");
  platform.registry.CloseStatus = 0;
  platform.registry.Keys.clear();
  expect(Set(7, u"x"), kErrRegistry, u"Do not support this type");
  EXPECT_TRUE(platform.registry.Keys.contains("Key")) << "the key stays";
  expect(Set(4, u"x"), 13, u"Type mismatch");
  expect(Set(4, u"9999999999"), 6, u"Overflow");
  expect(registry.DeleteValue(1, u"Key", u"other", &number, &description), kErrRegistry,
         u"Failed to delete value from registry");
  expect(registry.DeleteKey(1, u"Key", u"other", &number, &description), kErrRegistry,
         u"Failed to delete value from registry");
  EXPECT_FALSE(registry.DeleteKey(1, u"None", u"other")) << "the out arguments may be left out";
}

TEST_F(RegistryTest, Deletes) {
  Put(4, "abcd");
  platform.registry.Keys.insert("Key\\Sub");
  EXPECT_TRUE(registry.DeleteValue(1, u"Key", u"v", &number, &description));
  EXPECT_TRUE(registry.DeleteKey(1, u"Key", u"Sub", &number, &description));
  EXPECT_TRUE(platform.registry.Values.empty());
  EXPECT_EQ(platform.registry.Keys, std::set<std::string>{"Key"});
  EXPECT_EQ(platform.registry.OpenKeys(), 0u);
}

}  // namespace quorvane::test
