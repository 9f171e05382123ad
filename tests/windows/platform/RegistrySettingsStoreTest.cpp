#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "support/Raised.h"
#include "support/Seed.h"
#include "windows/platform/RegistryNode.h"
#include "windows/platform/RegistrySettingsStore.h"
#include "windows/platform/Win32RegistryStore.h"

namespace quorvane::test {

using windows::RegistryNode;
using windows::RegistrySettingsStore;

const std::u16string kRoot = u"Software\\QuorvaneTest";

class RegistrySettingsStoreTest : public ::testing::Test {
 protected:
  RegistrySettingsStoreTest() { RegistryNode::DeleteTree(HKEY_CURRENT_USER, kRoot); }
  ~RegistrySettingsStoreTest() override { RegistryNode::DeleteTree(HKEY_CURRENT_USER, kRoot); }

  /// What a program that starts now finds.
  static std::u16string Stored(const std::u16string& key) {
    return RegistrySettingsStore(kRoot).GetSetting(u"应用", u"S", key, u"none");
  }
  static RegistryNode Key(const std::u16string& below) {
    return RegistryNode::Create(HKEY_CURRENT_USER, kRoot + below);
  }
  static bool Exists(const std::u16string& below) {
    return RegistryNode::Open(HKEY_CURRENT_USER, kRoot + below).has_value();
  }
};

TEST_F(RegistrySettingsStoreTest, WritesShowAtOnceAndLastFromCommit) {
  RegistrySettingsStore store(kRoot);
  store.Commit();
  EXPECT_FALSE(Exists(u"")) << "nothing to write";
  store.SaveSetting(u"应用", u"S", u"k", u"1");
  store.SaveSetting(u"应用", u"S", u"gone", u"x");
  EXPECT_EQ(store.GetSetting(u"应用", u"s", u"K", u"none"), u"1") << "names go in any case";
  EXPECT_EQ(Stored(u"k"), u"none");
  store.Commit();
  EXPECT_EQ(Stored(u"k"), u"1");
  store.DeleteSetting(u"应用", u"S");
  EXPECT_EQ(Raised([&] { store.DeleteSetting(u"应用", u"S"); }), 5);
  store.SaveSetting(u"应用", u"S", u"k", u"2");
  EXPECT_EQ(Stored(u"gone"), u"x");
  store.Commit();
  EXPECT_EQ(Stored(u"k"), u"2");
  EXPECT_EQ(Stored(u"gone"), u"none") << "the section was emptied first";
  store.DeleteSetting(u"应用", u"S");
  store.Commit();
  EXPECT_FALSE(Exists(u"\\应用\\S"));
  EXPECT_FALSE(Exists(u"\\Quorvane (pending)"));
}

TEST_F(RegistrySettingsStoreTest, CopiesAreKeptBesideTheSection) {
  RegistrySettingsStore store(kRoot);
  const auto kept = [&] { return store.KeepCopy(u"应用", u"S"); };
  const auto copied = [&](const std::u16string& name) {
    return RegistrySettingsStore(kRoot).GetSetting(u"应用", name, u"k", u"none");
  };
  EXPECT_EQ(kept(), u"") << "nothing to keep";
  for (const char16_t* value : {u"1", u"2", u"2"}) {
    store.SaveSetting(u"应用", u"S", u"k", value);
    store.Commit();
    EXPECT_EQ(kept(), u"HKEY_CURRENT_USER\\" + kRoot + u"\\应用\\S.damaged" + (*value == u'1' ? u"" : u"-2"));
  }
  EXPECT_EQ(copied(u"S.damaged") + copied(u"S.damaged-2"), u"12");
}

TEST_F(RegistrySettingsStoreTest, AnyTextComesBack) {
  std::mt19937 random(test::NewSeed());
  using namespace std::string_literals;
  const std::u16string pool = u"a=[]\\/\r\n\t \0u0中\xD83D\xDE00\xDC80\xFFFD\""s;
  std::map<std::u16string, std::u16string> values;
  for (int i = 0; i < 100; ++i) {
    std::u16string text;
    for (std::size_t left = random() % 12; left > 0; --left) text += pool[random() % pool.size()];
    values[u"key" + std::u16string(1, static_cast<char16_t>(u'一' + i))] = text;
  }
  values[u"long"] = std::u16string(100000, u'x');
  RegistrySettingsStore store(kRoot);
  for (const auto& [key, text] : values) store.SaveSetting(u"应用", u"S", key, text);
  store.Commit();
  for (const auto& [key, text] : values) ASSERT_EQ(Stored(key), text);
}

/// What a process left that ended in the middle of a Commit.
TEST_F(RegistrySettingsStoreTest, AnInterruptedCommitHappensWholeOrNotAtAll) {
  for (const bool complete : {false, true}) {
    Key(u"\\应用\\S").SetText(u"k", u"old");
    Key(u"\\应用\\Gone").SetText(u"k", u"old");
    const std::u16string journal = u"\\Quorvane (pending)";
    Key(journal + u"\\1").SetText(u"Key", u"应用\\S");
    Key(journal + u"\\1\\Values").SetText(u"k", u"new");
    Key(journal + u"\\2").SetText(u"Key", u"应用\\Gone");
    if (complete) Key(journal).SetText(u"Complete", u"1");
    EXPECT_EQ(Stored(u"k"), complete ? u"new" : u"old");
    EXPECT_EQ(Exists(u"\\应用\\Gone"), !complete);
    EXPECT_FALSE(Exists(journal));
  }
}

TEST(Win32RegistryStoreTest, StatusesAreThePlatforms) {
  windows::Win32RegistryStore store;
  constexpr auto kCurrentUser = static_cast<RegistryKey>(0x80000001);
  constexpr std::uint32_t kAll = 0x20019 | 0x20006;
  RegistryKey key = 0;
  EXPECT_EQ(store.OpenKey(kCurrentUser, "Software\\QuorvaneTest\\none", kAll, key), 2);
  ASSERT_EQ(store.CreateKey(kCurrentUser, "Software\\QuorvaneTest\\A", 0, kAll, true, key), 0);
  EXPECT_EQ(store.SetValue(key, "v", 1, std::string_view("text\0", 5)), 0);
  std::int32_t type = 0;
  char buffer[8] = {};
  std::size_t size = 3;
  EXPECT_EQ(store.QueryValue(key, "v", type, buffer, size), 234);
  EXPECT_EQ(size, 5U);
  size = sizeof(buffer);
  EXPECT_EQ(store.QueryValue(key, "v", type, buffer, size), 0);
  EXPECT_EQ(std::string(buffer), "text");
  EXPECT_EQ(type, 1);
  EXPECT_EQ(store.DeleteValue(key, "v"), 0);
  EXPECT_EQ(store.DeleteValue(key, "v"), 2);
  EXPECT_EQ(store.CloseKey(key), 0);
  ASSERT_EQ(store.OpenKey(kCurrentUser, "Software", kAll, key), 0);
  EXPECT_EQ(store.DeleteKey(key, "QuorvaneTest\\A"), 0);
  EXPECT_EQ(store.DeleteKey(key, "QuorvaneTest"), 0);
  EXPECT_EQ(store.CloseKey(key), 0);
}

}  // namespace quorvane::test
