// What other programs, and a program that is killed, find of the settings.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "native/settings/FilePrivateProfile.h"
#include "native/settings/FileSettingsStore.h"
#include "support/Kills.h"
#include "support/TempFolder.h"

namespace quorvane::test {

using native::FileSettingsStore;

std::ptrdiff_t FilesIn(const TempFolder& folder) {
  return std::distance(std::filesystem::directory_iterator(folder.Path()), {});
}

TEST(SettingsOnDiskTest, TheOldFileStaysWholeForWhoeverReadsIt) {
  const TempFolder folder;
  const std::string path = folder / "settings";
  FileSettingsStore store(path);
  store.SaveSetting(u"App", u"S", u"k", u"1");
  store.Commit();
  const std::string before = folder.Read("settings");
  std::ifstream reader(path, std::ios::binary);
  store.SaveSetting(u"App", u"S", u"k", u"2");
  store.Commit();
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), before);
  EXPECT_NE(folder.Read("settings"), before);
}

TEST(SettingsOnDiskTest, AKilledProgramLeavesTheOldStoreOrTheNewOne) {
  const TempFolder folder;
  const std::string path = folder / "settings";
  const auto stored = [&path](const std::u16string& key) {
    return FileSettingsStore(path).GetSetting(u"App", u"S", key, u"none");
  };
  const std::u16string values[] = {std::u16string(300'000, u'a'), std::u16string(200'000, u'b')};
  const auto save = [&](int turn) {
    FileSettingsStore store(path);
    store.SaveSetting(u"App", u"S", u"k", values[turn % 2]);
    store.SaveSetting(u"App", u"S", u"last", u"1");
    store.Commit();
  };
  save(1);
  Kills kills;
  kills.Run(save, [&] {
    const std::u16string found = stored(u"k");
    EXPECT_TRUE(found == values[0] || found == values[1]) << "of " << found.size() << " units";
    EXPECT_EQ(stored(u"last"), u"1");
    save(1);
    EXPECT_EQ(FilesIn(folder), 1);
  });
}

TEST(SettingsOnDiskTest, AKilledProgramLeavesTheOldIniFileOrTheNewOne) {
  const TempFolder folder;
  const std::u16string path = FromUtf8(folder / "config.ini");
  const std::string others(200'000, ';');
  folder.Write("config.ini", "[S]\n" + others + "\nk=0\n");
  native::FilePrivateProfile profile(folder / "none");
  const auto save = [&](int turn) { profile.Write("S", "k", std::to_string(turn % 2), path); };
  Kills kills;
  kills.Run(save, [&] {
    const std::string found = folder.Read("config.ini");
    EXPECT_TRUE(found == "[S]\n" + others + "\nk=0\n" || found == "[S]\n" + others + "\nk=1\n") << found.size();
    save(1);
    EXPECT_EQ(FilesIn(folder), 1);
  });
}

}  // namespace quorvane::test
