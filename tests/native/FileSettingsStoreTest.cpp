#include <gtest/gtest.h>

#include <map>

#include "base/Text.h"
#include "native/settings/FileSettingsStore.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/Seed.h"
#include "support/TempFolder.h"

namespace quorvane::test {

using native::FileSettingsStore;

class FileSettingsStoreTest : public ::testing::Test {
 protected:
  /// What a program that starts now finds.
  std::u16string Stored(const std::u16string& key) {
    return FileSettingsStore(path).GetSetting(u"App", u"S", key, u"none");
  }

  TempFolder folder;
  const std::string path = folder / "deep/settings";
};

TEST_F(FileSettingsStoreTest, WritesShowAtOnceAndLastFromCommit) {
  FileSettingsStore store(path);
  store.Commit();
  EXPECT_FALSE(std::filesystem::exists(path)) << "nothing to write";
  store.SaveSetting(u"App", u"S", u"k", u"1");
  store.SaveSetting(u"App", u"S", u"k", u"2");
  EXPECT_EQ(store.GetSetting(u"App", u"S", u"k", u"none"), u"2");
  EXPECT_EQ(store.GetSetting(u"App", u"s", u"k", u"none"), u"none");
  EXPECT_EQ(Stored(u"k"), u"none");
  store.Commit();
  EXPECT_EQ(Stored(u"k"), u"2");
  store.SaveSetting(u"Other", u"S", u"k", u"3");
  store.DeleteSetting(u"App", u"S");
  EXPECT_EQ(Raised([&] { store.DeleteSetting(u"App", u"S"); }), 5);
  EXPECT_EQ(Stored(u"k"), u"2");
  store.Commit();
  EXPECT_EQ(Stored(u"k"), u"none");
  EXPECT_EQ(FileSettingsStore(path).GetSetting(u"Other", u"S", u"k", u""), u"3");

  folder.Write("deep/settings", "[App/S]\nk=1\nk=2\n");
  FileSettingsStore doubled(path);
  doubled.SaveSetting(u"App", u"S", u"k", u"3");
  doubled.Commit();
  EXPECT_EQ(Stored(u"k"), u"3") << "of a key that stands there twice";
}

/// Two programs that both read the same file and write one after the other, as often as a table says: each writes its
/// section anew, as the program does at its end.
TEST_F(FileSettingsStoreTest, ProgramsKeepWhatOthersWrote) {
  using Values = std::map<std::u16string, std::u16string>;
  const auto values = [](const std::vector<std::string>& settings) {
    Values all;
    for (const std::string& setting : settings) {
      const std::size_t at = setting.find('=');
      all[FromUtf8(setting.substr(0, at))] = FromUtf8(setting.substr(at + 1));
    }
    return all;
  };
  const auto rewrite = [](FileSettingsStore& store, const Values& all) {
    store.DeleteSetting(u"App", u"S");
    for (const auto& [key, value] : all) store.SaveSetting(u"App", u"S", key, value);
    store.Commit();
  };
  for (const Row& row : Rows("native/FileSettingsStore.rows", "TwoPrograms")) {
    SCOPED_TRACE(row.Where());
    std::filesystem::remove(path);
    FileSettingsStore before(path);
    for (const auto& [key, value] : values({"a=1", "b=2", "list=x\r\ny"})) before.SaveSetting(u"App", u"S", key, value);
    before.Commit();
    FileSettingsStore first(path, {u"list"});
    FileSettingsStore second(path, {u"list"});
    for (FileSettingsStore* store : {&first, &second}) store->GetSetting(u"App", u"S", u"a", u"");
    rewrite(first, values(row.List(1)));
    rewrite(second, values(row.List(2)));
    const Values kept = values(row.List(3));
    for (const auto& [key, value] : kept) EXPECT_EQ(Stored(key), value) << ToUtf8(key);
    rewrite(first, values(row.List(1)));  // and once more, on what is now there
    if (kept.contains(u"b")) {
      EXPECT_EQ(Stored(u"b"), kept.at(u"b"));
    }
  }
}

TEST_F(FileSettingsStoreTest, AnyTextComesBack) {
  std::mt19937 random(test::NewSeed());
  using namespace std::string_literals;
  const std::u16string pool = u"a=[]#\\/\r\n\t \0u0中\xD83D\xDE00\xDC80\x7F\xFFFD\xFEFF\""s;
  const auto text = [&] {
    std::u16string made;
    for (std::size_t left = random() % 12; left > 0; --left) made += pool[random() % pool.size()];
    return made;
  };
  for (int turn = 0; turn < 200; ++turn) {
    std::map<std::u16string, std::u16string> values;
    const std::u16string app = text();
    const std::u16string section = text();
    FileSettingsStore store(path);
    for (int i = 0; i < 8; ++i) {
      const std::u16string key = text();
      values[key] = text();
      store.SaveSetting(app, section, key, values[key]);
    }
    store.Commit();
    FileSettingsStore again(path);
    for (const auto& [key, value] : values) {
      ASSERT_EQ(again.GetSetting(app, section, key, u"none"), value) << "turn " << turn;
    }
  }
}

TEST_F(FileSettingsStoreTest, ADamagedFileIsNamedAndKept) {
  std::string copy = "deep/settings.damaged";
  int number = 1;
  for (const char* bytes : {"[App/S]\nno value\n", "k=1\n", "[App]\n", "[App/S]\nk=\\x\n", "[App/S]\nk=\\u12\n",
                            "[App/S]\nk=\\u12g4\n", "[App/S]\nk=\\"}) {
    folder.Write("deep/settings", bytes);
    FileSettingsStore store(path);
    EXPECT_EQ(Raised([&] { store.GetSetting(u"App", u"S", u"k", u""); }), 321) << bytes;
    EXPECT_EQ(folder.Read("deep/settings"), bytes);
    EXPECT_EQ(Raised([&] { store.DeleteSetting(u"App", u"S"); }), 5);
    store.SaveSetting(u"App", u"S", u"k", u"new");
    store.Commit();
    EXPECT_EQ(Stored(u"k"), u"new");
    EXPECT_EQ(folder.Read(copy), bytes) << copy;
    copy = "deep/settings.damaged-" + std::to_string(++number);
  }
  std::filesystem::remove(path);
  std::filesystem::create_directories(path);
  FileSettingsStore store(path);
  EXPECT_EQ(test::Raised([&] { store.GetSetting(u"App", u"S", u"k", u""); }), "75 Path/File access error: " + path);
}

TEST_F(FileSettingsStoreTest, ACopyIsKeptBeforeAnythingIsWrittenOver) {
  FileSettingsStore store(path);
  EXPECT_EQ(store.KeepCopy(u"App", u"S"), u"") << "nothing to keep";
  folder.Write("deep/settings", "[App/S]\nk=old\n");
  for (int turn = 0; turn < 2; ++turn) EXPECT_EQ(ToUtf8(store.KeepCopy(u"App", u"S")), path + ".damaged");
  EXPECT_EQ(folder.Read("deep/settings.damaged"), "[App/S]\nk=old\n");
  std::filesystem::remove(path + ".damaged");
  std::filesystem::rename(path, folder / "away");
  std::filesystem::create_directories(path);
  EXPECT_EQ(Raised([&] { store.KeepCopy(u"App", u"S"); }), 75) << "a folder gets no second name";
  store.SaveSetting(u"App", u"S", u"k", u"new");
  EXPECT_EQ(Raised([&] { store.Commit(); }), 75);
  std::filesystem::remove(path);
  std::filesystem::rename(folder / "away", path);
  store.Commit();
  EXPECT_EQ(folder.Read("deep/settings.damaged"), "[App/S]\nk=old\n") << "the Commit made up for it";
  EXPECT_EQ(Stored(u"k"), u"new");
}

TEST_F(FileSettingsStoreTest, ACommitThatFailsCanBeRepeated) {
  FileSettingsStore store(folder / "file/settings");
  folder.Write("file", "in the way");
  store.SaveSetting(u"App", u"S", u"k", u"1");
  EXPECT_ANY_THROW(store.Commit());
  std::filesystem::remove(folder / "file");
  store.Commit();
  EXPECT_EQ(FileSettingsStore(folder / "file/settings").GetSetting(u"App", u"S", u"k", u""), u"1");

  FileSettingsStore unwritable(folder / std::string(300, 'x'));  // too long for any file
  unwritable.SaveSetting(u"App", u"S", u"k", u"1");
  EXPECT_EQ(Raised([&] { unwritable.Commit(); }), 75);
  EXPECT_EQ(Raised([&] { unwritable.Commit(); }), 75);
}

}  // namespace quorvane::test
