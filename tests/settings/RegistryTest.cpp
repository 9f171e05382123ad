#include <gtest/gtest.h>

#include "addin/core/ErrorManager.h"
#include "addin/settings/Registry.h"
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

  TestPlatform platform;
  Registry registry;
  Registry::Value value = u"before";
  std::int32_t number = -1;
  std::u16string description = u"before";
};

TEST_F(RegistryTest, ReadsByType) {
  struct Row {
    std::int32_t type;
    std::string bytes;
    Registry::Value value;
  };
  const Row rows[] = {
      {1, std::string("caf\xE9\0", 5), u"café"},
      {1, std::string(254, 'x') + '\0', std::u16string(254, u'x')},
      {1, std::string("a\0b\0", 4), u"a"},
      {1, "no zero", u"no zero"},
      {2, std::string(3000, 'x') + '\0', std::u16string(3000, u'x')},
      {2, std::string("%HOME%\0", 7), u"%HOME%"},
      {3, std::string("\x01\x02\x00\x80\x09\x09", 6), std::int32_t(0x80000201)},
      {3, std::string("\x07", 1), 7},
      {4, std::string("\xFF\xFF\xFF\xFF", 4), -1},
      {7, std::string("many\0\0", 6), u"before"},
  };
  for (const Row& row : rows) {
    Put(row.type, row.bytes);
    value = u"before";
    EXPECT_TRUE(Get());
    EXPECT_EQ(value, row.value) << row.type;
    EXPECT_EQ(number, 0);
    EXPECT_EQ(description, u"");
  }
  EXPECT_EQ(platform.registry.LastAccess, 0x20019u);
  EXPECT_EQ(platform.registry.OpenKeys(), 0u);
}

TEST_F(RegistryTest, WritesByType) {
  struct Row {
    std::int32_t type;
    Registry::Value value;
    std::string bytes;
  };
  const Row rows[] = {{1, u"café", std::string("caf\xE9\0", 5)},
                      {2, 12, std::string("12\0", 3)},
                      {1, {}, std::string(1, '\0')},
                      {3, -2, "\xFE\xFF\xFF\xFF"},
                      {4, u" 258 ", std::string("\x02\x01\0\0", 4)},
                      {4, {}, std::string(4, '\0')}};
  for (const Row& row : rows) {
    EXPECT_TRUE(Set(row.type, row.value));
    EXPECT_EQ((platform.registry.Values[{"Key", "v"}]), std::pair(row.type, row.bytes));
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
